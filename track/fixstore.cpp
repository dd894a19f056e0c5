#include "track/fixstore.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 FIX_SIZE = sizeof(FIX_T);
}

void cFixStore::append(const QList<FIX_T> &fixes)
{
    if (!m_error.isEmpty())
        return;
    if (!m_file.isOpen() && m_size + fixes.size() <= KEPT_IN_MEMORY) {
        m_fixes += fixes;
    } else {
        // Unbuffered, because a buffer reports errors late and without a reason.
        const bool isOpen = m_file.isOpen() || static_cast<QIODevice &>(m_file).open(
                                                   QIODevice::ReadWrite | QIODevice::Unbuffered);
        if (!isOpen || !m_file.seek((m_size - m_fixes.size()) * FIX_SIZE))
            _fail();
        _write(std::exchange(m_fixes, {}));
        _write(fixes);
    }
    m_size += fixes.size();
}

void cFixStore::_write(const QList<FIX_T> &fixes)
{
    const auto *data = reinterpret_cast<const char *>(fixes.constData());
    // On a full disk, the first write may be a short one. Only the next one returns the reason.
    for (qint64 left = fixes.size() * FIX_SIZE; left > 0 && m_error.isEmpty();) {
        const qint64 n = m_file.write(data, left);
        if (n <= 0) {
            _fail();
            return;
        }
        data += n;
        left -= n;
    }
}

void cFixStore::_fail()
{
    if (m_error.isEmpty())
        m_error = u"the temporary file in %1: %2"_s.arg(QDir::tempPath(), m_file.errorString());
}

QList<FIX_T> cFixStore::read(qint64 index, qsizetype n)
{
    if (!m_file.isOpen())
        return m_fixes.mid(static_cast<qsizetype>(index), n);
    QList<FIX_T> fixes(n);
    const qint64 bytes = n * FIX_SIZE;
    if (!m_error.isEmpty() || !m_file.seek(index * FIX_SIZE) ||
        m_file.read(reinterpret_cast<char *>(fixes.data()), bytes) != bytes) {
        _fail();
        return {};
    }
    return fixes;
}
