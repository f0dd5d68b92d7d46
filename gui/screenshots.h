#pragma once

#include <QString>

// Renders every form and frame on the demo data into Folder/NAME.png (NAME = the class name).
// Returns the number of pictures written; failures are printed and not counted.
int renderScreenshots(const QString &folder);
