#include "track/fixstore.h"

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
        if (!m_file.isOpen() && !m_file.open())
            m_error = m_file.errorString();
        _write(std::exchange(m_fixes, {}));
        _write(fixes);
    }
    m_size += fixes.size();
}

void cFixStore::_write(const QList<FIX_T> &fixes)
{
    const qint64 bytes = fixes.size() * FIX_SIZE;
    const auto *const data = reinterpret_cast<const char *>(fixes.constData());
    if (m_error.isEmpty() && m_file.write(data, bytes) != bytes)
        m_error = m_file.errorString();
}

QList<FIX_T> cFixStore::read(qint64 index, qsizetype n)
{
    if (!m_file.isOpen())
        return m_fixes.mid(index, n);
    QList<FIX_T> fixes(n);
    const qint64 bytes = n * FIX_SIZE;
    if (!m_error.isEmpty() || !m_file.seek(index * FIX_SIZE) ||
        m_file.read(reinterpret_cast<char *>(fixes.data()), bytes) != bytes) {
        if (m_error.isEmpty())
            m_error = m_file.errorString();
        return {};
    }
    return fixes;
}
