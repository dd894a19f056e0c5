#ifndef INFO_H
#define INFO_H

#include "cli/command.h"

// `vrk3 info`: reports on standard output what is in archives, as text, JSON or TSV.
class cInfo : public cCommand
{
public:
    cInfo();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    RESULT_T process(const ARCHIVE_T &archive, cProgress &progress) const override;
    QByteArray before(bool isFirst) const override;
    QByteArray after(bool isEmpty) const override;

private:
    enum { TEXT, JSON, JSONL, TSV } m_form = TEXT;
};

#endif
