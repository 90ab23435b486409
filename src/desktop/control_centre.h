#pragma once

#include <functional>

class QWidget;

namespace tul::desktop {

/// Runs the control centre of this machine until the user leaves it; the result is the program's status.
/// `whenShown` is told the main panel's window as soon as it is to be seen.
int runControlCentre(
    int argc, char** argv, const std::function<void(QWidget&)>& whenShown = [](QWidget&) {});

}  // namespace tul::desktop
