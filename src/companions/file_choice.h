#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What the choosing of files and folders works on, without a window.
namespace tul::companion {

/// True when `a` stands before `b` in a list of names: numbers in them count by their value, so that PAGE2
/// stands before PAGE10; the case of A to Z counts only where nothing else differs.
bool standsBefore(std::string_view a, std::string_view b);

/// The path of a file or folder of this name in a folder.
std::string pathIn(const std::string& folder, const std::string& name);
/// The folder that holds this file or folder; empty for the root of a drive.
std::string folderAbove(const std::string& path);
bool isFolder(const std::string& path);

/// The names file's paths, as they stand in it. None when it cannot be read.
std::vector<std::string> readNames(const std::string& namesPath);
/// The names file that lists these paths.
std::string namesText(const std::vector<std::string>& paths);

/// The files of one folder: which of them the list shows, and which are chosen. What the list does not show
/// is never taken, and comes back chosen as it was when the list shows it again.
class FileChoice {
  public:
    /// `selected` are the paths of the present selection.
    explicit FileChoice(std::vector<std::string> selected) : selected_(std::move(selected)) {}

    /// Reads a folder. Of the files that the list then shows those of the present selection are chosen.
    /// False, with no files at all, when there is no such folder.
    bool open(const std::string& folder);
    const std::string& folder() const { return folder_; }

    /// Shows the files that end in this suffix; empty: all.
    void setSuffix(std::string_view suffix);
    /// Shows the files with this text in their names, in any case of A to Z. It begins before the suffix that
    /// all of them share.
    void setPart(std::string_view part);

    // The rows of the list, from 0.
    std::size_t rows() const { return shown_.size(); }
    const std::string& name(std::size_t row) const { return files_[shown_[row]].name; }
    bool isChosen(std::size_t row) const { return files_[shown_[row]].chosen; }
    void choose(std::size_t row, bool chosen) { files_[shown_[row]].chosen = chosen; }
    /// The row of the first file chosen, or of none: 0.
    std::size_t firstChosen() const;

    std::size_t chosen() const { return chosenRows().size(); }
    /// How many files are chosen that the list does not show.
    std::size_t hidden() const;
    /// Whole paths, in the order of the list.
    std::vector<std::string> chosenPaths() const;
    /// Of the chosen ones; the first of the longest.
    std::string longestPath() const;

  private:
    struct File {
        std::string name{};
        std::string upper{};
        bool chosen = false;
    };

    void show();
    bool isShown(const File& file) const;
    void chooseSelected();
    std::vector<std::size_t> chosenRows() const;

    std::vector<std::string> selected_;
    std::string folder_;
    std::string suffix_;  // with its full stop, in upper case
    std::string part_;    // in upper case
    std::vector<File> files_;
    std::vector<std::size_t> shown_;
};

}  // namespace tul::companion
