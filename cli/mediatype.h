#ifndef MEDIATYPE_H
#define MEDIATYPE_H

#include <QByteArray>
#include <QString>

// How many first bytes mediaExtension needs at most.
inline constexpr qsizetype MEDIA_START_SIZE = 377;

// The extension, with its dot, for a file that starts with these bytes; ".bin" unless they are
// those of JPEG, PNG, RIFF, H.264 in the byte stream format of its Annex B, or MPEG streams.
QString mediaExtension(const QByteArray &start);

#endif
