#include "settings/inifile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QVariant>

#include <cctype>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

const char *const g_iniFileName = "settings.ini";
const char *const g_prefixSettings = ".config/Ostravane";
const char *const g_prefixConfigs = ".config/Ostravane/Configs";
const char *const g_impossibleString = "{194D8616-8B70-4903-B994-9E97AB193D97}";

QSettings *CIniFile::mDefSettings = nullptr;
QSettings *CIniFile::mROSettings = nullptr;
int CIniFile::mDefSettingsRefCount = 0;

namespace
{
// The texts of this class are bytes in the local encoding. A NUL ends them when they become a
// QString.
QString _fromLocal(const std::string &text)
{
    return QString::fromLocal8Bit(text.c_str());
}

std::string _toLocal(const QString &text)
{
    return text.toLocal8Bit().toStdString();
}

QSettings *_openFile(const std::string &file)
{
    return new QSettings(_fromLocal(file), QSettings::IniFormat);
}

QString _fullKey(const std::string &section, const std::string &key)
{
    const QString name = QString::fromLatin1(section.c_str());
    return (name.isEmpty() ? u"default"_s : name) + u'/' + QString::fromLatin1(key.c_str());
}

// Returns the bytes that a stored text represents. QSettings resolves escapes itself, so a
// hand-written \xD0\xAF arrives as two Latin-1 letters, each of which is one byte of UTF-8. Letters
// that do not form UTF-8 that way were written as letters.
QByteArray _storedBytes(const QString &text)
{
    const QByteArray bytes = text.toLatin1();
    const bool escaped = QString::fromLatin1(bytes) == text && bytes.isValidUtf8();
    return escaped ? bytes : text.toUtf8();
}

std::string _lookUp(const QSettings *settings, const QString &fullKey)
{
    const QString text = settings->value(fullKey, QVariant(g_impossibleString)).toString();
    // The text ends at the first NUL. Without one, left(-1) is the whole text.
    return CIniFile::_undecorate(_storedBytes(text.left(text.indexOf(u'\0'))).toStdString());
}

std::string _fourBytes(unsigned long value)
{
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

std::string _madeHomeDir(const char *prefix)
{
    const QDir home(QDir::homePath());
    if (!home.exists(prefix))
        home.mkpath(prefix);
    return _toLocal(home.absolutePath()) + "/" + prefix;
}

// Replaces Qt's message handler for the fatal message. Qt's own may write to the system's journal
// instead of standard error, and it calls abort(), which dumps core although only a file is
// missing.
void _sayAndExit(QtMsgType, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    std::_Exit(EXIT_FAILURE);
}
} // namespace

CIniFile::CIniFile() : CIniFile(std::string()) {}

// All operations of this class take texts by reference.
// NOLINTBEGIN(modernize-pass-by-value)
CIniFile::CIniFile(const std::string &section) : mSection(section)
{
    distributeConfig();
    mSettings = mDefSettings;
}

CIniFile::CIniFile(const std::string &file, const std::string &section)
    : mSettings(_openFile(file)), mSection(section)
{
}
// NOLINTEND(modernize-pass-by-value)

CIniFile::~CIniFile()
{
    ReleaseSettings();
}

void CIniFile::EnableDefValsCreation(bool enable)
{
    mDefValsCreation = enable;
}

std::string CIniFile::GetString(const std::string &section, const std::string &key,
                                const std::string &defVal)
{
    const QString fullKey = _fullKey(section, key);
    for (const QSettings *layer : {mROSettings, mSettings}) {
        if (!layer)
            continue;
        std::string found = _lookUp(layer, fullKey);
        if (found != g_impossibleString)
            return found;
    }
    if (mDefValsCreation)
        WriteString(section, key, defVal);
    return defVal;
}

std::string CIniFile::GetString(const std::string &key, const std::string &defVal)
{
    return GetString(mSection, key, defVal);
}

int CIniFile::GetInt(const std::string &section, const std::string &key, int defVal)
{
    const std::string text = GetString(section, key, std::to_string(defVal));
    return QString::fromLatin1(text.c_str()).toInt();
}

int CIniFile::GetInt(const std::string &key, int defVal)
{
    return GetInt(mSection, key, defVal);
}

unsigned long CIniFile::GetFourCC(const std::string &section, const std::string &key,
                                  unsigned long defVal)
{
    std::string bytes = GetString(section, key, _fourBytes(defVal));
    bytes.resize(4);
    unsigned long value = 0;
    for (unsigned i = 0; i < 4; ++i)
        value |= static_cast<unsigned long>(static_cast<unsigned char>(bytes[i])) << 8 * i;
    return value;
}

bool CIniFile::WriteString(const std::string &section, const std::string &key,
                           const std::string &value)
{
    mSettings->setValue(_fullKey(section, key), QVariant(_decorate(value).c_str()));
    return true;
}

bool CIniFile::WriteString(const std::string &key, const std::string &value)
{
    return WriteString(mSection, key, value);
}

bool CIniFile::WriteInt(const std::string &section, const std::string &key, int value)
{
    return WriteString(section, key, std::to_string(value));
}

bool CIniFile::WriteInt(const std::string &key, int value)
{
    return WriteInt(mSection, key, value);
}

void CIniFile::WriteFourCC(const std::string &section, const std::string &key, unsigned long value)
{
    WriteString(section, key, _fourBytes(value));
}

void CIniFile::ClearSection(const std::string &section)
{
    mSettings->remove(QString::fromLatin1(section.c_str()));
}

void CIniFile::ClearSection()
{
    ClearSection(mSection);
}

void CIniFile::SetFile(const std::string &file)
{
    ReleaseSettings();
    mSettings = _openFile(file);
}

void CIniFile::ReleaseSettings()
{
    if (mSettings != mDefSettings)
        delete mSettings;
    else if (--mDefSettingsRefCount == 0)
        mSettings->sync();
}

std::string CIniFile::GetUserDir()
{
    return _toLocal(QDir::homePath());
}

std::string CIniFile::GetAppDir()
{
    return _toLocal(QCoreApplication::applicationDirPath());
}

std::string CIniFile::GetSettingsDir()
{
    return _madeHomeDir(g_prefixSettings);
}

std::string CIniFile::GetConfigDir()
{
    return _madeHomeDir(g_prefixConfigs);
}

void CIniFile::distributeConfig()
{
    if (!mDefSettings) {
        const QDir home(QDir::homePath());
        const std::string userFile = GetUserDir() + "/" + g_prefixSettings + "/" + g_iniFileName;
        const std::string installedFile = GetAppDir() + "/" + g_iniFileName;
        if (!home.exists(g_prefixSettings))
            home.mkpath(g_prefixSettings);
        const QString user = _fromLocal(userFile);
        const QString installed = _fromLocal(installedFile);
        if (!QFile::exists(user) && QFile::exists(installed))
            QFile::copy(installed, user);
        if (!QFile::exists(user)) {
            qInstallMessageHandler(_sayAndExit);
            qFatal(QObject::tr("File %s not found. Please reinstall the application.")
                       .toLocal8Bit()
                       .constData(),
                   installedFile.c_str());
        }
        mDefSettings = _openFile(userFile);
        mROSettings = _openFile(installedFile);
    }
    ++mDefSettingsRefCount;
}

std::string CIniFile::_decorate(const std::string &value)
{
    static const char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            text += "\\n";
        else if (c == '\r')
            text += "\\r";
        else if (c == '\t')
            text += "\\t";
        else if (c == '\\')
            text += "\\\\";
        else if (byte >= 0x20 && byte <= 0x7F)
            text += c;
        else
            text += {'\\', 'x', digits[byte >> 4], digits[byte & 0xF]};
    }
    return text;
}

std::string CIniFile::_undecorate(const std::string &text)
{
    enum { Plain, Escape, Hex } state = Plain;
    std::string value;
    std::string hex;
    for (const char c : text) {
        if (state == Hex) {
            if (std::isxdigit(static_cast<unsigned char>(c)))
                hex += c;
            if (hex.size() == 2) {
                value += static_cast<char>(std::stoi(hex, nullptr, 16));
                state = Plain;
            }
        } else if (state == Plain) {
            if (c == '\\')
                state = Escape;
            else
                value += c;
        } else if (c == 'x') {
            hex.clear();
            state = Hex;
        } else {
            switch (c) {
            case '\\':
                value += '\\';
                break;
            case 'n':
                value += '\n';
                break;
            case 'r':
                value += '\r';
                break;
            case 't':
                value += '\t';
                break;
            default:
                value.append({'\\', c}); // Not an escape.
            }
            state = Plain;
        }
    }
    return value;
}
