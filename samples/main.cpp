// tulsamples: writes the sample scores, or many generated pages for measurements.

#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "samples/damaged.h"
#include "samples/many.h"
#include "samples/scores.h"

namespace {

namespace fs = std::filesystem;
using tul::samples::Sample;

constexpr int failed = 1;
constexpr int wrongUsage = 2;

struct Request {
    int many = 0;  // 0: the scores
    std::size_t bytes = 50000;
    std::string folder;
    std::string fault;  // in the usage
};

std::optional<long> numberFrom(std::string_view text, long low, long high) {
    long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < low || value > high) return {};
    return value;
}

Request parse(const std::vector<std::string>& arguments) {
    Request request;
    bool sized = false;
    for (std::size_t i = 0; i < arguments.size() && request.fault.empty(); ++i) {
        const std::string& argument = arguments[i];
        const std::string_view value = i + 1 < arguments.size() ? std::string_view(arguments[i + 1]) : "";
        if (argument == "--many") {
            const auto count = numberFrom(value, 1, 9999);
            if (!count) request.fault = "--many needs a count from 1 to 9999";
            request.many = static_cast<int>(count.value_or(0));
            ++i;
        } else if (argument == "--bytes") {
            const auto size = numberFrom(value, 100, static_cast<long>(tul::samples::mostPageBytes));
            if (!size) request.fault = "--bytes needs a size from 100 to 131070";
            request.bytes = static_cast<std::size_t>(size.value_or(0));
            sized = true;
            ++i;
        } else if (argument.starts_with("-")) {
            request.fault = "unknown option " + argument;
        } else if (!request.folder.empty()) {
            request.fault = "more than one folder";
        } else {
            request.folder = argument;
        }
    }
    if (request.fault.empty() && request.folder.empty()) request.fault = "no folder";
    if (request.fault.empty() && sized && request.many == 0) request.fault = "--bytes goes with --many only";
    return request;
}

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

bool writeMany(const Request& request) {
    for (int number = 1; number <= request.many; ++number) {
        std::string digits = std::to_string(number);
        digits.insert(0, 4 - digits.size(), '0');
        const Sample page{"PAGE" + digits + ".MUS", "", tul::samples::manyPage(number, request.bytes)};
        if (!write(request.folder, page)) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) try {
    const Request request = parse({argv + 1, argv + argc});
    if (!request.fault.empty()) {
        std::fprintf(stderr, "tulsamples: %s; usage: tulsamples [--many COUNT [--bytes SIZE]] DIR\n",
                     request.fault.c_str());
        return wrongUsage;
    }
    const bool done = request.many > 0 ? writeMany(request) : writeScores(request.folder);
    return done ? 0 : failed;
} catch (const std::exception& fault) {
    std::fprintf(stderr, "tulsamples: %s\n", fault.what());
    return failed;
}
