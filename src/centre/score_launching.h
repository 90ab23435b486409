#pragma once

#include <string>
#include <vector>

#include "base/date_time.h"

/// SCORE and its companion PAGE: how they are reached, and how the user's files come to them and back.
namespace tul {

/// One run of a program of SCORE's family. Owner: the run; `UserFiles` is filled by who wants it.
struct ScoreRun {
    std::vector<std::string> ScoreFolderFiles;  // names in the work folder before the launch
    std::vector<std::string> UserFiles;         // whole paths to be carried to SCORE's folder
    DateTime RunStartTime;
    std::string NewestResult;  // path of the first file that appeared; empty: none did
};
extern ScoreRun scoreRun;

/// Runs the SCORE of `version` ("3", else SCOR4) through the dispatcher that is linked. Ends the program when
/// there is no version, or the dispatcher cannot be started.
void CallScoreEngine(const std::string& version, const std::string& command);

/// Runs PAGE on the selection: in its own folder, or with the user's files carried to SCORE's when they lie
/// on another drive. Ends the program when PAGE cannot be given the names file.
void CallPage();

/// Runs a program in the folder of its work files, where it is copied from beside PAGE if need be. The first
/// file that is newer than the run becomes the result.
void RunInWorkFolder(const std::string& folder, const std::string& program);

/// Runs PAGE in SCORE's folder, to which the user's files are copied and from which the new files are brought
/// back. Asks before it overwrites.
void RunInScoreFolder(const std::string& arguments);

}  // namespace tul
