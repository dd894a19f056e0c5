#include "cli/outputfile.h"

#include "cli/interrupt.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

static constexpr qsizetype BUFFER_SIZE = 65536;
static constexpr mode_t PERMISSIONS = 0666;
static constexpr mode_t PERMISSION_BITS = 0777;

cOutputFile::cOutputFile(const QString &name, bool overwrite, const QList<FILEID_T> &inputs)
    : m_name(name), m_overwrite(overwrite)
{
    m_buffer.reserve(BUFFER_SIZE);
    struct stat old = {};
    const bool exists = fileStatus(name, STDOUT_FILENO, old);
    const bool isFile = exists && S_ISREG(old.st_mode);
    if (isFile && inputs.contains(fileId(old)))
        _fail(u"it is an archive to be read"_s);
    else if (name == STANDARD_STREAM)
        m_fd = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    else if (isFile && !overwrite)
        _fail(u"it exists already (--overwrite replaces it)"_s);
    else if (!exists || isFile)
        _openTemporary(exists ? &old : nullptr);
    else
        m_fd = ::open(QFile::encodeName(name).constData(), O_WRONLY | O_CLOEXEC);
    if (m_fd < 0 && m_error.isEmpty())
        _failBySystem();
}

cOutputFile::~cOutputFile()
{
    if (m_fd >= 0 && !m_file.isOpen())
        ::close(m_fd);
}

void cOutputFile::_openTemporary(const struct stat *old)
{
    if (old) {
        // The file is replaced where it is, not a link to it, and only if it may be written to.
        m_name = QFileInfo(m_name).canonicalFilePath();
        if (::access(QFile::encodeName(m_name).constData(), W_OK) != 0)
            return;
        m_mode = old->st_mode & PERMISSION_BITS;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        m_mode = PERMISSIONS & ~mask;
    }
    m_file.setFileTemplate(QFileInfo(m_name).dir().filePath(u".vrk3-XXXXXX"_s));
    if (m_file.open())
        m_fd = m_file.handle();
    else
        _fail(m_file.errorString());
}

void cOutputFile::slot_Data(const QByteArray &a)
{
    if (!m_error.isEmpty())
        return;
    m_size += a.size();
    m_buffer.append(a);
    if (m_buffer.size() >= BUFFER_SIZE)
        _flush();
}

bool cOutputFile::_flush()
{
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

bool cOutputFile::commit()
{
    if (!m_error.isEmpty() || !_flush())
        return false;
    if (m_file.isOpen())
        return _publish();
    const int fd = std::exchange(m_fd, -1);
    return ::close(fd) == 0 || _failBySystem();
}

bool cOutputFile::_publish()
{
    // A courtesy: the file systems of memory cards have permissions of their own and refuse.
    (void)::fchmod(m_fd, m_mode);
    // Written to the disk before it gets its name: a full disk may come to light only here.
    if (::fsync(m_fd) != 0)
        return _failBySystem();
    if (!m_overwrite) {
        // Fails if somebody else has made a file of that name meanwhile.
        if (!m_file.rename(m_name))
            return _fail(m_file.errorString());
        m_file.setAutoRemove(false);
        return true;
    }
    const QByteArray temporary = QFile::encodeName(m_file.fileName());
    if (std::rename(temporary.constData(), QFile::encodeName(m_name).constData()) != 0)
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
    return false;
}
