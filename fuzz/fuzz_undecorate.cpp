// Decodes arbitrary stored text, and encodes and decodes arbitrary values.
#include "fuzz/harness.h"
#include "settings/inifile.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const std::string text(reinterpret_cast<const char *>(data), size);
    require(CIniFile::_undecorate(text).size() <= text.size(), "no value is longer than its text");
    const std::string stored = CIniFile::_decorate(text);
    require(CIniFile::_undecorate(stored) == text, "every value survives encoding and decoding");
    require(std::all_of(stored.begin(), stored.end(), [](char c) { return c >= 0x20; }),
            "a stored value is one line of ASCII");
    return 0;
}
