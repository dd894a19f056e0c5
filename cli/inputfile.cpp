#include "cli/inputfile.h"

#include "cli/fileid.h"
#include "cli/interrupt.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype BLOCK_SIZE = 65536;
}

cInputFile::cInputFile(const QString &name)
{
    struct stat status = {};
    // Opening a pipe would wait for its writer. Only waitForInput ends at a signal on every thread.
    const bool isPipe = fileStatus(name, STDIN_FILENO, status) && S_ISFIFO(status.st_mode);
    m_fd = name == STANDARD_STREAM ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                   : ::open(QFile::encodeName(name).constData(),
                                            O_RDONLY | O_CLOEXEC | (isPipe ? O_NONBLOCK : 0));
    if (m_fd < 0 || ::fstat(m_fd, &status) != 0)
        _fail(isInterrupted() ? u"interrupted"_s : qt_error_string(errno));
    else if (S_ISREG(status.st_mode))
        m_size = status.st_size;
}

cInputFile::~cInputFile()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool cInputFile::next(QByteArray &block)
{
    block.resize(BLOCK_SIZE);
    while (m_error.isEmpty()) {
        if (!waitForInput(m_fd))
            return _fail(u"interrupted"_s);
        const ssize_t n = ::read(m_fd, block.data(), size_t(block.size()));
        if (n > 0) {
            block.truncate(n);
            m_position += n;
            return true;
        }
        if (n == 0)
            return _atEnd();
        if (errno != EINTR && errno != EAGAIN)
            return _fail(qt_error_string(errno));
    }
    return false;
}

bool cInputFile::_atEnd()
{
    if (m_position < m_size)
        return _fail(u"it shrank while being read"_s);
    return false;
}

bool cInputFile::_fail(const QString &reason)
{
    m_error = reason;
    return false;
}
