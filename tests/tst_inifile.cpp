#include "settings/inifile.h"

#include <QtTest>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;
using std::string;
using Table = std::vector<std::pair<string, string>>;

namespace
{
// Makes the shared members visible.
struct SharedIni : CIniFile {
    using CIniFile::mDefSettingsRefCount;
};

void _put(const QString &name, const string &text)
{
    QFile file(name);
    QVERIFY2(file.open(QIODevice::WriteOnly) && file.write(text.c_str()) >= 0, qPrintable(name));
}

QByteArray _text(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(no file)";
}

const auto _q = &QByteArray::fromStdString; // QCOMPARE prints a QByteArray.
} // namespace

class tst_IniFile : public QObject
{
    Q_OBJECT

    QTemporaryDir m_home;
    const QString m_userFile = m_home.filePath(".config/Ostravane/settings.ini");
    const QString m_installed = QCoreApplication::applicationDirPath() + "/settings.ini";
    int m_files = 0;

    // A new name each time: QSettings caches a file's content by its name, size and time.
    string fresh() { return m_home.filePath(u"%1.ini"_s.arg(++m_files)).toStdString(); }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("HOME", QFile::encodeName(m_home.path()));
        _put(m_installed, "[common]\nversion=1.2\nempty=\n");
    }

    void cleanup() { QCOMPARE(SharedIni::mDefSettingsRefCount, 0); }

    void layers()
    {
        CIniFile own(fresh(), "common"); // There is no installed layer yet.
        QCOMPARE(_q(own.GetString("version", "default")), "default");
        own.WriteString("version", "own");
        QCOMPARE(_q(own.GetString("version", "")), "own");
        CIniFile ini, other("common");
        QCOMPARE(_q(own.GetString("version", "")), "1.2");
        QCOMPARE(_text(m_userFile), _text(m_installed));
        ini.WriteString("common", "version", "mine");
        QCOMPARE(_q(ini.GetString("common", "version", "")), "1.2");
        QCOMPARE(_q(other.GetString("empty", "default")), "");
        ini.WriteString("common", "name", "mine");
        QCOMPARE(_q(other.GetString("name", "")), "mine");
        QCOMPARE(_q(own.GetString("name", "default")), "default");
        own.WriteString("", "a", "1");
        QCOMPARE(_q(own.GetString("default", "a", "")), "1");
        QCOMPARE(_q(own.GetString(string("\0Z", 2), string("a\0Z", 3), "")), "1");
        QCOMPARE(_q(own.GetString("a", "elsewhere")), "elsewhere");
        own.WriteString("impossible", g_impossibleString);
        QCOMPARE(_q(own.GetString("impossible", "missed")), "missed");
    }

    void decoration()
    {
        const Table bothWays = {{R"(dir\\file\t)", "dir\\file\t"}, {R"(\xd0\xaf\n)", "\xd0\xaf\n"},
                                {R"(\\x41)", R"(\x41)"},           {"\\r\x7f", "\r\x7f"},
                                {R"(\x1f ~\x80)", "\x1f ~\x80"},   {"", ""}};
        const Table oneWay = {{R"(\q)", R"(\q)"},     {R"(abc\)", "abc"},  {R"(a\x)", "a"},
                              {R"(a\x4)", "a"},       {R"(\x4g1Z)", "AZ"}, {R"(\x\41)", "A"},
                              {R"(\x414)", "A4"},     {R"(\xD0)", "\xd0"}, {R"(\\\q\n)", "\\\\q\n"},
                              {R"(\X41)", R"(\X41)"}, {R"(\x4x1)", "A"}};
        for (const auto &[stored, value] : bothWays)
            QCOMPARE(_q(CIniFile::_decorate(value)), _q(stored));
        for (const Table &table : {bothWays, oneWay}) {
            for (const auto &[stored, value] : table)
                QCOMPARE(_q(CIniFile::_undecorate(stored)), _q(value));
        }
        string anything;
        for (int byte = 0; byte < 256; ++byte)
            anything += {static_cast<char>(byte), 'A'};
        CIniFile ini(fresh(), "s");
        ini.WriteString("k", anything);
        QCOMPARE(_q(ini.GetString("k", "")), _q(anything));
    }

    void handEdited()
    {
        const Table lines = {
            {"k=Путь", "Путь"},   {"k=é ü", "é ü"},          {R"(k=\xD0\xAF)", "Я"},
            {"k=", ""},           {R"(k=\\xD0\\xAF)", "Я"},  {R"(k=\xE9)", "é"},
            {R"(k=\x42f)", "Я"},  {R"(k=a\xd800)", "a?"},    {R"(k=\xD0\xAF\0\xFF)", "Я"},
            {R"(k=a\qb)", "ab"},  {R"(k=a\\qb)", R"(a\qb)"}, {R"(k=abc\\)", "abc"},
            {"k=a, b", ""},       {R"(k="a, b")", "a, b"},   {R"(k=\"a\")", R"("a")"},
            {" k = a b ", "a b"}, {R"(k=" a ")", " a "},     {"k=a;b", "a"},
            {"k=a=b", "a=b"},     {"k=a\nk=b", "b"},         {"k", "-"},
            {"K=a", "-"},         {"k=@Invalid()", ""},      {"k=\xff", "\uFFFD"},
            {"k=\"a", "a\n"}};
        for (const auto &[line, value] : lines) {
            const string name = fresh();
            _put(name.c_str(), "[s]\n" + line + "\n");
            const QByteArray found = _q(CIniFile(name, "s").GetString("k", "-"));
            QVERIFY2(found == _q(value), found + " from " + _q(line));
        }
    }

    void numbers()
    {
        CIniFile ini(fresh(), "s");
        const std::map<string, int> texts = {{"-7", -7}, {"12abc", 0}, {"0x10", 0},
                                             {"", 0},    {"1.5", 0},   {"2147483648", 0}};
        for (const auto &[stored, number] : texts) {
            ini.WriteString("n", stored);
            QCOMPARE(ini.GetInt("n", 5), number);
            QVERIFY(ini.WriteInt("n", number));
            QCOMPARE(_q(ini.GetString("n", "")), _q(std::to_string(number)));
        }
        QCOMPARE(ini.GetInt("missing", -5), -5);
        const std::map<string, unsigned long> codes = {
            {string("AB\0\xff", 4), 0xFF004241}, {"ABCDE", 0x44434241}, {"A", 0x41}, {"", 0}};
        for (const auto &[stored, code] : codes) {
            ini.WriteString("c", stored);
            QCOMPARE(ini.GetFourCC("s", "c", 1), code);
            ini.WriteFourCC("s", "c", static_cast<unsigned long>(0x1234567800000000ULL | code));
            QCOMPARE(ini.GetFourCC("s", "c", 1), code);
            QCOMPARE(ini.GetString("c", "").size(), 4U);
        }
        QCOMPARE(ini.GetFourCC("s", "missing", static_cast<unsigned long>(0xAB00000001ULL)), 1UL);
    }

    // A file is written when its object releases it, here by SetFile.
    void defaultsOnDisk()
    {
        const string name = fresh();
        for (const bool creation : {false, true}) {
            CIniFile ini(name, "s");
            ini.EnableDefValsCreation(creation);
            QCOMPARE(_q(ini.GetString("a", "x\ty")), "x\ty");
            QCOMPARE(ini.GetInt("n", -3), -3);
            QCOMPARE(ini.GetFourCC("s", "c", 0xFF000041UL), 0xFF000041UL);
            QCOMPARE(_q(ini.GetString("common", "version", "not copied")), "1.2");
            QCOMPARE(_q(ini.GetString("a", "other")), creation ? "x\ty" : "other");
            ini.SetFile(fresh());
            QCOMPARE(_text(name.c_str()),
                     creation ? "[s]\na=x\\\\ty\nc=A\\\\x00\\\\x00\\\\xff\nn=-3\n" : "(no file)");
            ini.WriteString("a", "kept section");
            QCOMPARE(_q(ini.GetString("s", "a", "")), "kept section");
        }
    }

    void countAndSync()
    {
        auto first = std::make_unique<CIniFile>();
        auto second = std::make_unique<CIniFile>("count");
        QCOMPARE(SharedIni::mDefSettingsRefCount, 2);
        first->WriteString("count", "a", "1");
        first.reset();
        QCOMPARE(SharedIni::mDefSettingsRefCount, 1);
        QVERIFY(!_text(m_userFile).contains("[count]"));
        QCOMPARE(_q(second->GetString("a", "")), "1");
        second->SetFile(fresh());
        QCOMPARE(SharedIni::mDefSettingsRefCount, 0);
        QVERIFY(_text(m_userFile).contains("[count]\na=1\n"));
    }

    void clearSection()
    {
        CIniFile ini("one");
        const auto left = [&] {
            string sections;
            for (const char *section : {"default", "one", "two", "common"})
                sections += ini.GetString(section, "a", "-") + " ";
            return _q(sections + ini.GetString("common", "version", "-"));
        };
        for (const char *section : {"default", "one", "two", "common"})
            ini.WriteString(section, "a", section);
        ini.ClearSection();
        QCOMPARE(left(), "default - two common 1.2");
        ini.ClearSection("default");
        QCOMPARE(left(), "- - two common 1.2");
        CIniFile().ClearSection(); // The empty section means all of them.
        QCOMPARE(left(), "- - - - 1.2");
    }

    void directories()
    {
        const string settings = m_home.path().toStdString() + "/.config/Ostravane";
        QCOMPARE(_q(CIniFile::GetSettingsDir()), _q(settings));
        QCOMPARE(_q(CIniFile::GetConfigDir()), _q(settings + "/Configs"));
        QVERIFY(QFileInfo((settings + "/Configs").c_str()).isDir());
    }
};

QTEST_GUILESS_MAIN(tst_IniFile)
#include "tst_inifile.moc"
