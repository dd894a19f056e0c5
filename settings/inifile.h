#ifndef INIFILE_H
#define INIFILE_H

#include <string>

class QSettings;

// File name of the settings, both beside the program and in the user's directory.
extern const char *const g_iniFileName;
// The user's settings directory, relative to the home directory.
extern const char *const g_prefixSettings;
// The user's directory for whole configurations, relative to the home directory.
extern const char *const g_prefixConfigs;
// What a layer that does not hold a key answers with; a stored value equal to it reads as a miss.
extern const char *const g_impossibleString;

// Named values by section and key, kept in INI files.
//
// A read asks the installed file beside the program first, then the object's own file, and falls
// back to the caller's default; so an installed value cannot be overridden. A write goes to the
// object's own file only: the user's file, which all objects made without a file name share, or a
// private one.
//
// Values are byte strings and come back byte for byte, NUL included; texts and file names are in
// the local 8-bit encoding. A section or key ends at its first NUL. The empty section is the
// section "default". A file that cannot be read is empty, and one that cannot be written loses
// what was written when the process ends; neither is ever reported.
//
// Written values reach the disk from the event loop, and for certain when the object lets go of
// its file: the shared one is brought up to date by the last object that does.
//
// All objects belong to one thread. Copying is not possible: a private file has one owner.
class CIniFile
{
public:
    // Attaches to the user's file, with an empty default section. Needs the application object.
    // The first such object of a process brings the user's file into being from the installed one;
    // if neither is there, the process ends with a message on standard error and a failure status.
    CIniFile();
    // The same with `section` as default section.
    explicit CIniFile(const std::string &section);
    // Works on `file`, which need not exist, with `section` as default section. As long as no
    // object has attached to the user's file, there is no installed layer for this one either.
    CIniFile(const std::string &file, const std::string &section);
    CIniFile(const CIniFile &) = delete;
    CIniFile &operator=(const CIniFile &) = delete;
    virtual ~CIniFile();

    // Whether a read that finds nothing stores its default in the object's own file. Off at first.
    void EnableDefValsCreation(bool enable);

    // The stored text, `defVal` if no layer has the key. A stored empty text is found.
    std::string GetString(const std::string &section, const std::string &key,
                          const std::string &defVal);
    std::string GetString(const std::string &key, const std::string &defVal);

    // The stored text as a decimal number, 0 if it is none or does not fit, `defVal` if no layer
    // has the key.
    int GetInt(const std::string &section, const std::string &key, int defVal);
    int GetInt(const std::string &key, int defVal);

    // The first four stored bytes, lowest first; bytes that a shorter value lacks are 0. The
    // result is below 2^32, and of `defVal` only bits 0 to 31 count.
    unsigned long GetFourCC(const std::string &section, const std::string &key,
                            unsigned long defVal);

    // Always true, written or not.
    bool WriteString(const std::string &section, const std::string &key, const std::string &value);
    bool WriteString(const std::string &key, const std::string &value);
    bool WriteInt(const std::string &section, const std::string &key, int value);
    bool WriteInt(const std::string &key, int value);
    // Stores bits 0 to 31 as four bytes, lowest first.
    void WriteFourCC(const std::string &section, const std::string &key, unsigned long value);

    // Removes a section from the object's own file. Unlike elsewhere the empty section is not
    // "default" here: it stands for the whole file.
    void ClearSection(const std::string &section);
    void ClearSection();

    // Lets go of the current file and works on `file` from now on; section and default creation
    // stay as they are.
    void SetFile(const std::string &file);
    // Lets go of the current file, as `SetFile` and the destructor do by themselves. Not to be
    // called on an object that either of them will still see: it would let go a second time, which
    // upsets the count of the shared file and deletes a private one twice.
    void ReleaseSettings();

    // Directories as absolute paths without a closing slash. The home directory.
    static std::string GetUserDir();
    // Where the program lies, and the installed file beside it. Needs the application object.
    static std::string GetAppDir();
    // `g_prefixSettings` and `g_prefixConfigs` in the home directory. Both are made if missing, and
    // named even if they cannot be made.
    static std::string GetSettingsDir();
    static std::string GetConfigDir();
    // Makes the layers that all objects share on the first call of the process, and counts one more
    // object on them. The constructors do so for their object; any other call upsets the count, and
    // the last object no longer brings the user's file up to date when it goes.
    static void distributeConfig();

    // Any bytes as one line of ASCII. Line feed, carriage return, tab and backslash become \n, \r,
    // \t and \\, every other byte outside 0x20 to 0x7F becomes \x and two lower-case digits.
    static std::string _decorate(const std::string &value);
    // The way back; takes any text. An unknown escape is kept as it stands, an unfinished one at
    // the end is dropped, and bytes between \x and its two digits are skipped.
    static std::string _undecorate(const std::string &text);

protected:
    // The user's file and the installed one, null until `distributeConfig`; they stay to the end
    // of the process.
    static QSettings *mDefSettings;
    static QSettings *mROSettings;
    // How many objects are attached to `mDefSettings`.
    static int mDefSettingsRefCount;

private:
    QSettings *mSettings = nullptr; // `mDefSettings`, or a file of this object's own.
    std::string mSection;
    bool mDefValsCreation = false;
};

#endif
