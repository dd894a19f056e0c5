#ifndef OUTPUTNAMES_H
#define OUTPUTNAMES_H

#include <QStringList>

class QFile;

// Returns a proposal for each input: its name, with its extension replaced by the one in
// parentheses at the end of the filter text, such as ".gpx" in "GPS Exchange Format (*.gpx)". A
// name without an extension is proposed unchanged. If the filter has no such extension, the old one
// is removed.
QStringList proposedOutputs(const QStringList &inputs, const QString &filter);

// Asks for the output in a Save dialog that begins with the proposal and offers the one filter.
// Asks again if the user picks the file that is open as input, whatever its name. Returns the name
// unchanged, as the dialog returned it; empty if the user cancels.
QString askOutput(const QFile &input, const QString &proposal, const QString &filter);

#endif
