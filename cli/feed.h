#ifndef FEED_H
#define FEED_H

#include "archive/vrk3parser.h"
#include "cli/archives.h"
#include "cli/borrowedheader.h"
#include "cli/inputfile.h"
#include "cli/progress.h"

#include <functional>

// Reads an archive and passes it to a parser, after a borrowed header if there is one. Offsets and
// the account are those of the archive, without the borrowed bytes.
class cFeed
{
public:
    explicit cFeed(const ARCHIVE_T &archive);

    // Passes the archive to the parser until its end, or until isDone returns true. Call this only
    // once.
    void run(
        cVrk3Parser &parser, cProgress &progress,
        const std::function<bool()> &isDone = [] { return false; });

    // An error message if the archive could not be read completely; empty if it could.
    const QString &error() const { return m_input.error(); }
    // Returns true while the parser reads borrowed bytes. Its signals are then not about the
    // archive.
    bool isBorrowed() const { return m_isBorrowed; }
    // Converts an offset in the bytes that the parser has received to one in the archive.
    qint64 offset(qint64 n) const;
    // The parser's account, once run() has returned.
    const ACCOUNT_T &account() const { return m_account; }

private:
    ACCOUNT_T _own(ACCOUNT_T account) const;

    cInputFile m_input;
    const cBorrowedHeader *m_header = nullptr;
    cBorrowedHeader::LEAD_T m_lead;
    bool m_isBorrowed = false;
    ACCOUNT_T m_account;
};

#endif
