#include "cli/mediatype.h"

using namespace Qt::StringLiterals;

namespace
{
// Returns true if the bytes begin with a start code of Annex B and a sequence parameter set or an
// access unit delimiter. Every H.264 stream begins like this.
bool _isH264(const QByteArray &start)
{
    constexpr int typeMask = 0x9F; // with the bit that is always 0
    constexpr int parameterSet = 7;
    constexpr int delimiter = 9;
    const qsizetype code = start.startsWith({"\0\0\0\1", 4}) ? 4
                           : start.startsWith({"\0\0\1", 3}) ? 3
                                                             : start.size();
    if (code >= start.size())
        return false;
    const int type = static_cast<unsigned char>(start.at(code)) & typeMask;
    return type == parameterSet || type == delimiter;
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
