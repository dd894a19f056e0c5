#include "settings/inifile.h"

#include <QtTest>

#include <map>
#include <memory>
#include <random>

using std::string;
using Table = std::vector<std::pair<string, string>>;

// Shows what the objects share.
struct Ini : CIniFile {
    using CIniFile::mDefSettingsRefCount;
};

static void put(const QString &name, const string &text)
{
    QFile file(name);
    QVERIFY2(file.open(QIODevice::WriteOnly) && file.write(text.c_str()) >= 0, qPrintable(name));
}

static QByteArray text(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

static QByteArray q(const string &bytes) // QCOMPARE shows these.
{
    return QByteArray::fromStdString(bytes);
}

template <typename... Text>
static Table pairs(const Text &...texts)
{
    const std::vector<string> flat{texts...};
    Table table;
    for (size_t i = 0; i < flat.size(); i += 2)
        table.emplace_back(flat[i], flat[i + 1]);
    return table;
}

class TstIniFile : public QObject
{
    Q_OBJECT

    QTemporaryDir mHome;
    const QString mUserFile = mHome.filePath(".config/Ostravane/settings.ini");
    const QString mInstalled = QCoreApplication::applicationDirPath() + "/settings.ini";
    int mFiles = 0;

    // A name not used before: Qt keeps what it read from a file and trusts its size and time.
    string fresh() { return mHome.filePath(QString("%1.ini").arg(++mFiles)).toStdString(); }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("HOME", QFile::encodeName(mHome.path()));
        put(mInstalled, "[common]\nversion=1.2\nempty=\n");
    }

    void cleanup() { QCOMPARE(Ini::mDefSettingsRefCount, 0); }

    void layers()
    {
        CIniFile own(fresh(), "common"); // Before there is an installed layer.
        QCOMPARE(q(own.GetString("version", "default")), "default");
        own.WriteString("version", "own");
        QCOMPARE(q(own.GetString("version", "")), "own");
        CIniFile ini, other("common");
        QCOMPARE(q(own.GetString("version", "")), "1.2");
        QCOMPARE(text(mUserFile), text(mInstalled));
        ini.WriteString("common", "version", "mine");
        QCOMPARE(q(ini.GetString("common", "version", "")), "1.2");
        QCOMPARE(q(other.GetString("empty", "default")), "");
        ini.WriteString("common", "name", "mine");
        QCOMPARE(q(other.GetString("name", "")), "mine");
        QCOMPARE(q(own.GetString("name", "default")), "default");
        own.WriteString("", "a", "1");
        QCOMPARE(q(own.GetString("default", "a", "")), "1");
        QCOMPARE(q(own.GetString(string("\0Z", 2), "a", "")), "1");
        QCOMPARE(q(own.GetString("a", "elsewhere")), "elsewhere");
        own.WriteString("impossible", g_impossibleString);
        QCOMPARE(q(own.GetString("impossible", "missed")), "missed");
        own.WriteString("kAZ", "whole");
        own.WriteString(string("k\0Z", 3), "cut");
        QCOMPARE(q(own.GetString("k", "") + own.GetString("kAZ", "")), "cutwhole");
    }

    void decoration()
    {
        const Table bothWays = pairs(R"(dir\\file\t)", "dir\\file\t", R"(\xd0\xaf\n)", "\xd0\xaf\n",
                                     R"(\\x41)", R"(\x41)", "\\r\x7f", "\r\x7f");
        const Table oneWay =
            pairs(R"(\q)", R"(\q)", R"(abc\)", "abc", R"(a\x)", "a", R"(a\x4)", "a", R"(\x4g1Z)",
                  "AZ", R"(\x\41)", "A", R"(\x414)", "A4", R"(\xD0)", "\xd0", R"(\\\q\n)",
                  "\\\\q\n", R"(\X41)", R"(\X41)", R"(\x4x1)", "A");
        for (const auto &[stored, value] : bothWays)
            QCOMPARE(q(CIniFile::_decorate(value)), q(stored));
        for (const Table &table : {bothWays, oneWay})
            for (const auto &[stored, value] : table)
                QCOMPARE(q(CIniFile::_undecorate(stored)), q(value));
    }

    // What is written comes back byte for byte: through the decoration, and through a file.
    void decorationOfAnything()
    {
        std::vector<string> values(1);
        for (int byte = 0; byte < 256; ++byte) {
            values.emplace_back(1, static_cast<char>(byte));
            values[0] += values.back() + "A";
        }
        const unsigned seed = std::random_device()();
        std::mt19937 random(seed);
        for (int i = 0; i < 2000; ++i) {
            values.emplace_back(random() % 40, '\0');
            for (char &c : values.back()) // Half of the bytes are those that mean something.
                c = random() % 2 ? static_cast<char>(random())
                                 : "\\xnrt09aF\",;=@%[ "[random() % 17];
        }
        const string name = fresh();
        auto ini = std::make_unique<CIniFile>(name, "random");
        for (size_t i = 0; i < values.size(); ++i)
            ini->WriteString(std::to_string(i), values[i]);
        ini = std::make_unique<CIniFile>(name, "random");
        for (size_t i = 0; i < values.size(); ++i) {
            const string stored = CIniFile::_decorate(values[i]);
            if (std::any_of(stored.begin(), stored.end(), [](char c) { return c < ' '; }) ||
                CIniFile::_undecorate(stored) != values[i] ||
                ini->GetString(std::to_string(i), "missed") != values[i])
                QFAIL(qPrintable(QString("seed %1: %2").arg(seed).arg(stored.c_str())));
        }
    }

    void handEdited()
    {
        for (const auto &[line, value] :
             pairs("k=Путь", "Путь", "k=é ü", "é ü", R"(k=\xD0\xAF)", "Я", R"(k=\\xD0\\xAF)", "Я",
                   R"(k=\xE9)", "é", R"(k=\x42f)", "Я", R"(k=a\xd800)", "a?", R"(k=\xD0\xAF\0\xFF)",
                   "Я", R"(k=a\qb)", "ab", R"(k=a\\qb)", R"(a\qb)", R"(k=abc\\)", "abc", "k=a, b",
                   "", R"(k="a, b")", "a, b", R"(k=\"a\")", R"("a")", " k = a b ", "a b",
                   R"(k=" a ")", " a ", "k=a;b", "a", "k=a=b", "a=b", "k=a\nk=b", "b", "k=", "",
                   "k", "-", "K=a", "-", "k=@Invalid()", "", "k=\xff", "\uFFFD", "k=\"a", "a\n")) {
            const string name = fresh();
            put(name.c_str(), "[s]\n" + line + "\n");
            const QByteArray found = q(CIniFile(name, "s").GetString("k", "-"));
            QVERIFY2(found == q(value), found + " from " + q(line));
        }
    }

    void numbers()
    {
        CIniFile ini(fresh(), "s");

        for (const auto &[stored, number] :
             pairs("-7", "-7", "12abc", "0", "0x10", "0", "", "0", "1.5", "0", "2147483647",
                   "2147483647", "2147483648", "0", "-2147483648", "-2147483648")) {
            ini.WriteString("n", stored);
            const int value = ini.GetInt("n", 5);
            QCOMPARE(q(std::to_string(value)), q(number));
            QVERIFY(ini.WriteInt("n", value));
            QCOMPARE(q(ini.GetString("n", "")), q(number));
        }
        QCOMPARE(ini.GetInt("missing", -5), -5);
        const std::map<string, unsigned long> codes{
            {string("AB\0\xff", 4), 0xFF004241}, {"ABCDE", 0x44434241}, {"A", 0x41}, {"", 0}};
        for (const auto &[stored, code] : codes) {
            ini.WriteString("c", stored);
            QCOMPARE(ini.GetFourCC("s", "c", 1), code);
            ini.WriteFourCC("s", "c", 0x1234567800000000UL | code);
            QCOMPARE(ini.GetFourCC("s", "c", 1), code);
            QCOMPARE(ini.GetString("c", "").size(), 4U);
        }
        QCOMPARE(ini.GetFourCC("s", "missing", 0xAB00000001UL), 1UL);
    }

    void defaultsOnDisk()
    {
        const string name = fresh();
        for (const bool creation : {false, true}) {
            CIniFile ini(name, "s");
            ini.EnableDefValsCreation(creation);
            QCOMPARE(q(ini.GetString("a", "x\ty")), "x\ty");
            QCOMPARE(ini.GetInt("n", -3), -3);
            QCOMPARE(ini.GetFourCC("s", "c", 0xFF000041UL), 0xFF000041UL);
            QCOMPARE(q(ini.GetString("common", "version", "not copied")), "1.2");
            QCOMPARE(q(ini.GetString("a", "other")), creation ? "x\ty" : "other");
            ini.SetFile(fresh());
            QCOMPARE(text(name.c_str()),
                     creation ? "[s]\na=x\\\\ty\nc=A\\\\x00\\\\x00\\\\xff\nn=-3\n" : "(no file)");
        }
    }

    void countAndSync()
    {
        auto first = std::make_unique<CIniFile>();
        auto second = std::make_unique<CIniFile>("count");
        QCOMPARE(Ini::mDefSettingsRefCount, 2);
        first->WriteString("count", "a", "1");
        first.reset();
        QCOMPARE(Ini::mDefSettingsRefCount, 1);
        QVERIFY(!text(mUserFile).contains("[count]"));
        QCOMPARE(q(second->GetString("a", "")), "1");
        second.reset();
        QVERIFY(text(mUserFile).contains("[count]\na=1\n"));
        // The layers stay: a later object looks for neither file.
        QVERIFY(QFile::rename(mUserFile, mUserFile + "~") && QFile::remove(mInstalled));
        second = std::make_unique<CIniFile>("count");
        QCOMPARE(Ini::mDefSettingsRefCount, 1);
        QVERIFY(!QFile::exists(mUserFile) && QFile::rename(mUserFile + "~", mUserFile));
        initTestCase();
    }

    void setFile()
    {
        const string first = fresh(), second = fresh();
        {
            CIniFile ini("keep");
            ini.EnableDefValsCreation(true);
            ini.WriteString("a", "shared");
            ini.SetFile(first);
            QCOMPARE(Ini::mDefSettingsRefCount, 0);
            QVERIFY(text(mUserFile).contains("[keep]\na=shared\n"));
            ini.WriteString("a", "1");
            QCOMPARE(q(ini.GetString("common", "version", "")), "1.2");
            ini.SetFile(second);
            QCOMPARE(text(first.c_str()), "[keep]\na=1\n");
            QCOMPARE(q(ini.GetString("a", "made")), "made");
        }
        QCOMPARE(text(second.c_str()), "[keep]\na=made\n");
    }

    void clearSection()
    {
        CIniFile ini("one");
        const auto left = [&] {
            string sections;
            for (const char *section : {"default", "one", "two", "common"})
                sections += ini.GetString(section, "a", "-") + " ";
            return q(sections + ini.GetString("common", "version", "-"));
        };
        for (const char *section : {"default", "one", "two", "common"})
            ini.WriteString(section, "a", section);
        ini.ClearSection();
        QCOMPARE(left(), "default - two common 1.2");
        ini.ClearSection("default");
        QCOMPARE(left(), "- - two common 1.2");
        ini.ClearSection("");
        QCOMPARE(left(), "- - - - 1.2");
        ini.WriteString("two", "a", "again");
        CIniFile().ClearSection(); // The empty section again.
        QCOMPARE(left(), "- - - - 1.2");
    }

    void directories()
    {
        const string settings = mHome.path().toStdString() + "/.config/Ostravane";
        QCOMPARE(q(CIniFile::GetSettingsDir()), q(settings));
        QVERIFY(!QFileInfo::exists((settings + "/Configs").c_str()));
        QCOMPARE(q(CIniFile::GetConfigDir()), q(settings + "/Configs"));
        QVERIFY(QFileInfo((settings + "/Configs").c_str()).isDir());
    }
};

QTEST_GUILESS_MAIN(TstIniFile)
#include "tst_inifile.moc"
