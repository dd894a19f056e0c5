#include "cli/feed.h"

cFeed::cFeed(const ARCHIVE_T &archive) : m_input(archive.name), m_header(archive.header) {}

void cFeed::run(cVrk3Parser &parser, cProgress &progress, const std::function<bool()> &isDone)
{
    QByteArray block;
    if (m_header) {
        QByteArray start;
        while (start.size() < cBorrowedHeader::LOOKAHEAD && m_input.next(block))
            start += block;
        m_lead = m_header->lead(start);
        m_isBorrowed = true;
        parser.slot_Data(m_lead.bytes);
        m_isBorrowed = false;
        parser.slot_Data(start.mid(m_lead.skipped));
    }
    while (!isDone() && m_input.next(block)) {
        parser.slot_Data(block);
        progress.setPosition(m_input.position(), m_input.size());
    }
    m_account = _own(parser.account());
}

qint64 cFeed::offset(qint64 n) const
{
    return qMax<qint64>(0, n - m_lead.bytes.size() + m_lead.skipped);
}

// Removes the borrowed bytes from an account, and adds the bytes that they replaced.
ACCOUNT_T cFeed::_own(ACCOUNT_T account) const
{
    for (STRETCH_T &stretch : account.stretches)
        stretch.offset = offset(stretch.offset);
    account.received = account.received - m_lead.bytes.size() + m_lead.skipped;
    account.hdr -= m_lead.hdr;
    account.idx -= m_lead.idx;
    account.heads -= m_lead.heads;
    if (m_lead.skipped > 0) {
        account.scanned += m_lead.skipped;
        account.stretches.prepend({0, m_lead.skipped});
        account.stretches.resize(
            qMin<qsizetype>(account.stretches.size(), cVrk3Parser::STRETCH_MAX));
        ++account.stretchCount;
    }
    return account;
}
