#include "desktop/control_centre.h"

int main(int argc, char** argv) { return tul::desktop::runControlCentre(argc, argv); }
