#ifndef INIFILE_H
#define INIFILE_H

#include <string>

class QSettings;

// The file name of the settings, both beside the program and in the user's directory.
extern const char *const g_iniFileName;
// The user's settings directory, relative to the home directory.
extern const char *const g_prefixSettings;
// The user's directory for whole configurations, relative to the home directory.
extern const char *const g_prefixConfigs;
// The default value that marks a missing key. A stored value equal to it counts as missing.
extern const char *const g_impossibleString;

// Named values by section and key, kept in INI files.
//
// A read looks in the installed file beside the program first, then in the object's own file, and
// falls back to the caller's default. So an installed value cannot be overridden. A write changes
// only the object's own file. That is either a private file or the user's file, which all objects
// created without a file name share.
//
// Values are byte strings and come back byte for byte, NUL included. Texts and file names are in
// the local 8-bit encoding. A section or key ends at its first NUL. The empty section is the
// section "default". Errors are never reported: an unreadable file counts as empty, and what was
// written to an unwritable file is lost when the process ends.
//
// The event loop writes changes to disk from time to time. A private file is certain to be up to
// date once its object has released it, and the user's file once the last object attached to it
// has.
//
// Use all objects from one thread. They cannot be copied, because a private file has one owner.
class CIniFile
{
public:
    // Attaches to the user's file, with an empty default section. Needs the application object.
    // The first such object of a process creates the user's file as a copy of the installed one, if
    // it does not exist. If that fails, the process ends with a message on standard error and a
    // failure status.
    CIniFile();
    // The same with `section` as default section.
    explicit CIniFile(const std::string &section);
    // Uses a private file, which need not exist, with `section` as default section. Reads skip the
    // installed file until some object has attached to the user's file.
    CIniFile(const std::string &file, const std::string &section);
    CIniFile(const CIniFile &) = delete;
    CIniFile &operator=(const CIniFile &) = delete;
    virtual ~CIniFile();

    // Sets whether a read that finds nothing stores its default in the object's own file. Off by
    // default.
    void EnableDefValsCreation(bool enable);

    // Returns the stored text, or `defVal` if no file has the key. An empty stored text counts as
    // found.
    std::string GetString(const std::string &section, const std::string &key,
                          const std::string &defVal);
    std::string GetString(const std::string &key, const std::string &defVal);

    // Returns the stored text as a decimal number: 0 if it is not a number or does not fit,
    // `defVal` if no file has the key.
    int GetInt(const std::string &section, const std::string &key, int defVal);
    int GetInt(const std::string &key, int defVal);

    // Returns the first four stored bytes as a number, lowest byte first. A shorter value is padded
    // with zeros. The result is below 2^32; only bits 0 to 31 of `defVal` are used.
    unsigned long GetFourCC(const std::string &section, const std::string &key,
                            unsigned long defVal);

    // These always return true, even if the value cannot be written.
    bool WriteString(const std::string &section, const std::string &key, const std::string &value);
    bool WriteString(const std::string &key, const std::string &value);
    bool WriteInt(const std::string &section, const std::string &key, int value);
    bool WriteInt(const std::string &key, int value);
    // Stores bits 0 to 31 as four bytes, lowest first.
    void WriteFourCC(const std::string &section, const std::string &key, unsigned long value);

    // Removes a section from the object's own file. Here the empty section is not "default": it
    // removes all sections.
    void ClearSection(const std::string &section);
    void ClearSection();

    // Releases the current file and uses a private one from now on. The default section and the
    // creation of defaults stay as they are.
    void SetFile(const std::string &file);
    // Releases the current file. `SetFile` and the destructor call this themselves. Do not call it
    // otherwise: the destructor would release the file a second time, which deletes a private
    // file's object twice and miscounts the users of the shared one.
    void ReleaseSettings();

    // The following return absolute paths without a slash at the end.

    // Returns the home directory.
    static std::string GetUserDir();
    // Returns the directory of the program and of the installed file. Needs the application object.
    static std::string GetAppDir();
    // Return `g_prefixSettings` and `g_prefixConfigs` in the home directory. They create a missing
    // directory, and return its path even if that fails.
    static std::string GetSettingsDir();
    static std::string GetConfigDir();
    // Opens the user's file and the installed one on the first call in the process. Every call
    // counts one more user of them. The constructors call this. If anything else calls it, the last
    // object no longer writes the user's file when it is destroyed.
    static void distributeConfig();

    // Encodes any bytes as one line of ASCII. Line feed, carriage return, tab and backslash become
    // \n, \r, \t and \\; every other byte outside 0x20 to 0x7F becomes \x and two lower-case
    // hexadecimal digits.
    static std::string _decorate(const std::string &value);
    // Decodes what `_decorate` has written; accepts any text. An unknown escape is kept unchanged,
    // an unfinished one at the end is dropped, and bytes between \x and its two digits are skipped.
    static std::string _undecorate(const std::string &text);

protected:
    // The user's file and the installed one. Null until the first `distributeConfig`, never freed.
    static QSettings *mDefSettings;
    static QSettings *mROSettings;
    // The number of objects attached to `mDefSettings`.
    static int mDefSettingsRefCount;

private:
    QSettings *mSettings = nullptr; // `mDefSettings`, or a private file that this object owns.
    std::string mSection;
    bool mDefValsCreation = false;
};

#endif
