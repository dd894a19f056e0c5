// Reads and changes a settings file with arbitrary contents.
#include "fuzz/harness.h"
#include "settings/inifile.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
const char *const KEYS[] = {"winHeight", "fullscreen", "a", "options_version"};

// Returns a new name for each file, because Qt caches the contents of a file under its name.
std::string _newName()
{
    static long number = 0;
    return (QDir::tempPath() + u"/vrktrk-fuzz-%1-%2.ini"_s.arg(getpid()).arg(++number))
        .toStdString();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const std::string name = _newName();
    QFile file(QString::fromStdString(name));
    require(file.open(QIODevice::WriteOnly), "the file can be created");
    file.write(inputOf(data, size));
    file.close();

    const std::string value(reinterpret_cast<const char *>(data), std::min<size_t>(size, 40));
    {
        CIniFile ini(name, "common");
        for (const char *const key : KEYS) {
            const std::string text = ini.GetString(key, "?");
            require(ini.GetString("common", key, "?") == text,
                    "repeated reads return the same value");
            require(ini.GetFourCC("common", key, 0) <= 0xFFFFFFFFUL, "a code has 32 bits");
            (void)ini.GetInt("vrktrk.session", key, 7);
        }
        ini.WriteString("written", value);
        ini.WriteInt("number", -7);
        ini.EnableDefValsCreation(true);
        (void)ini.GetString("default", "made", value);
    }
    {
        CIniFile ini(name, "common");
        const bool sentinel = value == g_impossibleString;
        require(sentinel || ini.GetString("written", "?") == value, "a written text can be read");
        require(ini.GetInt("number", 0) == -7, "a written number can be read");
    }
    file.remove();
    return 0;
}
