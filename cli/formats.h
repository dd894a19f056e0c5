#ifndef FORMATS_H
#define FORMATS_H

#include "cli/targets.h"

#include <QCommandLineParser>
#include <QString>

#include <span>

// The option --to of the commands that write tracks in several formats.

// A format on the command line.
struct FORMAT_T {
    const char *name;
    const char *extension;            // of the outputs, with its dot
    const char *otherExtensions = ""; // of -o's file, separated by spaces
};

// Adds the option. One of the formats must be gpx, the default.
void addFormatOption(QCommandLineParser &parser, std::span<const FORMAT_T> formats);

// Chooses the format with the name in the option. Without the option, the extension of -o's file
// decides; names and extensions may be in any case. Returns an error message, empty on success.
QString readFormat(const QCommandLineParser &parser, const cTargets &targets,
                   std::span<const FORMAT_T> formats, const FORMAT_T *&chosen);

#endif
