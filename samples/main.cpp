// tulsamples: writes the sample scores, or many generated pages for measurements.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>

#include "samples/damaged.h"
#include "samples/many.h"
#include "samples/scores.h"

namespace {

namespace fs = std::filesystem;
using tul::samples::Sample;

constexpr int failed = 1;
constexpr int wrongUsage = 2;

// Says what went wrong, if anything did.
bool write(const fs::path& folder, const Sample& sample) {
    std::error_code error;
    fs::create_directories(folder, error);
    const fs::path path = folder / sample.name;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(sample.bytes.data(), static_cast<std::streamsize>(sample.bytes.size()));
    file.close();
    if (file) return true;
    std::fprintf(stderr, "tulsamples: %s could not be written\n", path.string().c_str());
    return false;
}

bool writeScores(const fs::path& folder) {
    for (const Sample& sample : tul::samples::scores()) {
        if (!write(folder, sample)) return false;
        std::printf("%-12s  %s\n", sample.name.c_str(), sample.what.c_str());
    }
    for (const Sample& sample : tul::samples::damaged()) {
        if (!write(folder / "damaged", sample)) return false;
        std::printf("damaged/%-12s  %s\n", sample.name.c_str(), sample.what.c_str());
    }
    return true;
}

bool writeMany(const fs::path& folder, int count, std::size_t bytes) {
    for (int number = 1; number <= count; ++number) {
        std::string digits = std::to_string(number);
        if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
        const Sample page{"PAGE" + digits + ".MUS", "", tul::samples::manyPage(number, bytes)};
        if (!write(folder, page)) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) try {
    CLI::App app("Writes the sample scores, or many generated pages for measurements.", "tulsamples");
    std::string folder;
    int many = 0;
    std::size_t bytes = 50000;
    app.add_option("DIR", folder, "The folder to write to")->required();
    CLI::Option* const count =
        app.add_option("--many", many, "Generated pages instead of the scores")->check(CLI::Range(1, 32767));
    app.add_option("--bytes", bytes, "Size of a generated page")
        ->check(CLI::Range(std::size_t{2000}, tul::samples::mostPageBytes))
        ->needs(count);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : wrongUsage;
    }
    return (many > 0 ? writeMany(folder, many, bytes) : writeScores(folder)) ? 0 : failed;
} catch (const std::exception& fault) {
    std::fprintf(stderr, "tulsamples: %s\n", fault.what());
    return failed;
}
