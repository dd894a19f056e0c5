#include "cli/outputfile.h"

#include "cli/interrupt.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype BUFFER_SIZE = 65536;
constexpr mode_t PERMISSIONS = 0666;
constexpr mode_t PERMISSION_BITS = 0777;

// The only way to read the mask is to set it, and threads share it, so it is read before main. A
// thread that creates a folder at that moment would create it without a mask.
const mode_t NEW_FILE_MODE = [] {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return PERMISSIONS & ~mask;
}();

// Returns the file that a name refers to. Follows symbolic links, even to a file that does not
// exist: for such a link, canonicalFilePath returns nothing, weakly_canonical returns the link, and
// symLinkTarget removes ".." from the text, which is wrong below a link to a folder.
QString _followLinks(const QString &name)
{
    constexpr int maxLinks = 40; // the kernel's own limit
    std::filesystem::path path = QFile::encodeName(name).toStdString();
    std::error_code error;
    for (int i = 0; i < maxLinks && std::filesystem::is_symlink(path, error); ++i)
        path = path.parent_path() / std::filesystem::read_symlink(path, error);
    return QFile::decodeName(path.c_str());
}
} // namespace

bool isSameOutput(const QString &a, const QString &b)
{
    struct stat statusA = {};
    struct stat statusB = {};
    const bool isStream = a == STANDARD_STREAM || b == STANDARD_STREAM;
    // A regular file is replaced by name, so hard links are different outputs.
    if (fileStatus(a, STDOUT_FILENO, statusA) && fileStatus(b, STDOUT_FILENO, statusB) &&
        (isStream || !S_ISREG(statusA.st_mode)))
        return fileId(statusA) == fileId(statusB);
    if (isStream)
        return a == b;
    const QFileInfo fileA(_followLinks(a));
    const QFileInfo fileB(_followLinks(b));
    return fileA.fileName() == fileB.fileName() && fileA.dir() == fileB.dir();
}

cOutputFile::cOutputFile(QString name, EXISTING_T existing, const QSet<FILEID_T> &inputs)
    : m_name(std::move(name)), m_path(m_name), m_existing(existing), m_file(this)
{
    m_buffer.reserve(BUFFER_SIZE);
    struct stat old = {};
    const bool exists = fileStatus(m_name, STDOUT_FILENO, old);
    const bool isFile = exists && S_ISREG(old.st_mode);
    if (isFile && inputs.contains(fileId(old)))
        _fail(u"it is one of the input archives"_s);
    else if (m_name == STANDARD_STREAM)
        m_fd = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    else if (isFile && existing == EXISTING_SKIP)
        m_skipped = true;
    else if (!exists && errno == ELOOP)
        _failBySystem();
    else if (existing != EXISTING_REPLACE && (isFile || (!exists && QFileInfo(m_name).isSymLink())))
        _fail(u"it already exists (use --overwrite to replace it)"_s);
    else if (!exists || isFile)
        _openTemporary(exists ? &old : nullptr);
    else
        m_fd = ::open(QFile::encodeName(m_name).constData(), O_WRONLY | O_CLOEXEC);
    if (m_fd < 0 && isOpen())
        _failBySystem();
}

cOutputFile::~cOutputFile()
{
    if (m_fd >= 0 && !m_file.isOpen())
        ::close(m_fd);
}

void cOutputFile::_openTemporary(const struct stat *old)
{
    // Replace the file itself, not a link to it, and only if it is writable.
    if (m_existing == EXISTING_REPLACE)
        m_path = _followLinks(m_name);
    if (old) {
        if (::access(QFile::encodeName(m_path).constData(), W_OK) != 0)
            return;
        m_mode = old->st_mode & PERMISSION_BITS;
    } else {
        m_mode = NEW_FILE_MODE;
    }
    m_file.setFileTemplate(QFileInfo(m_path).dir().filePath(u".vrk3-XXXXXX"_s));
    if (m_file.open())
        m_fd = m_file.handle();
    else
        _fail(m_file.errorString());
}

void cOutputFile::slot_Data(const QByteArray &a)
{
    if (!isOpen())
        return;
    m_size += a.size();
    m_buffer.append(a);
    if (m_buffer.size() >= BUFFER_SIZE)
        flush();
}

bool cOutputFile::flush()
{
    if (!isOpen())
        return m_skipped;
    const char *p = m_buffer.constData();
    const char *const end = p + m_buffer.size();
    while (p < end) {
        if (isInterrupted())
            return _fail(u"interrupted"_s);
        const ssize_t n = ::write(m_fd, p, size_t(end - p));
        if (n >= 0)
            p += n;
        else if (errno != EINTR)
            return _failBySystem();
    }
    m_buffer.resize(0);
    return true;
}

bool cOutputFile::finish()
{
    if (m_finished || !isOpen() || !flush())
        return m_error.isEmpty();
    m_finished = true;
    m_buffer = QByteArray(); // many finished files may wait for their names
    // m_file closes its descriptor when it is renamed. Another thread may then get the number.
    const int fd = std::exchange(m_fd, -1);
    if (!m_file.isOpen())
        return ::close(fd) == 0 || _failBySystem();
    // Failure is harmless: the file systems of memory cards have no permissions to set.
    (void)::fchmod(fd, m_mode);
    // A full disk may be noticed only here, so this comes before the file gets its name.
    return ::fsync(fd) == 0 || _failBySystem();
}

bool cOutputFile::commit()
{
    return finish() && (m_skipped || !m_file.isOpen() || _publish());
}

bool cOutputFile::_publish()
{
    if (m_existing != EXISTING_REPLACE) {
        // Fails if another process has created a file of that name since.
        if (!m_file.rename(m_path))
            return _fail(m_file.errorString());
        m_file.setAutoRemove(false);
        return true;
    }
    const QByteArray temporary = QFile::encodeName(m_file.fileName());
    if (std::rename(temporary.constData(), QFile::encodeName(m_path).constData()) != 0)
        return _failBySystem();
    m_file.setAutoRemove(false);
    return true;
}

bool cOutputFile::_failBySystem()
{
    return _fail(qt_error_string(errno));
}

bool cOutputFile::_fail(const QString &reason)
{
    m_error = reason;
    Q_EMIT signal_Failed();
    return false;
}
