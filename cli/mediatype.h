#ifndef MEDIATYPE_H
#define MEDIATYPE_H

#include <QByteArray>
#include <QString>

// mediaExtension looks at no more than this many bytes.
inline constexpr qsizetype MEDIA_START_SIZE = 377;

// Returns the extension, with its dot, for a file that starts with these bytes: ".bin" unless they
// are certainly those of JPEG, PNG, RIFF, H.264 in the byte stream format of its Annex B, or MPEG
// streams.
QString mediaExtension(const QByteArray &start);

#endif
