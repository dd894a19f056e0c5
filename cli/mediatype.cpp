#include "cli/mediatype.h"

using namespace Qt::StringLiterals;

namespace
{
// Returns true if the bytes begin with a start code of Annex B and a sequence parameter set or an
// access unit delimiter. Every H.264 stream begins like this.
bool _isH264(const QByteArray &start)
{
    const qsizetype code = start.startsWith({"\0\0\0", 3}) ? 4 : 3;
    if (code >= start.size() || !start.first(code).endsWith({"\0\0\1", 3}))
        return false;
    const char head = start.at(code);
    // A parameter set is a reference for other units, so it has a priority of 1 to 3.
    if (head == 0x27 || head == 0x47 || head == 0x67)
        return true;
    // A delimiter ends with a one and four zeros.
    return head == 9 && code + 1 < start.size() && (start.at(code + 1) & 0x1F) == 0x10;
}

// Returns true if the bytes begin with three packets of an MPEG transport stream.
bool _isTransportStream(const QByteArray &start)
{
    constexpr qsizetype packet = 188;
    constexpr char sync = 0x47;
    return start.size() > 2 * packet && start.at(0) == sync && start.at(packet) == sync &&
           start.at(2 * packet) == sync;
}
} // namespace

QString mediaExtension(const QByteArray &start)
{
    if (start.startsWith("\xFF\xD8\xFF"))
        return u".jpg"_s;
    if (start.startsWith("\x89PNG\r\n\x1A\n"))
        return u".png"_s;
    if (start.startsWith("RIFF")) {
        const QByteArray form = start.mid(8, 4);
        return form == "WAVE"   ? u".wav"_s
               : form == "AVI " ? u".avi"_s
               : form == "WEBP" ? u".webp"_s
                                : u".riff"_s;
    }
    // A pack header of a program stream, or a sequence header of video.
    if (start.startsWith({"\0\0\1\xBA", 4}) || start.startsWith({"\0\0\1\xB3", 4}))
        return u".mpg"_s;
    if (_isTransportStream(start))
        return u".ts"_s;
    return _isH264(start) ? u".h264"_s : u".bin"_s;
}
