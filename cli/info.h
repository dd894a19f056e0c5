#ifndef INFO_H
#define INFO_H

#include "cli/command.h"

// `vrk3 info`: reports on standard output what is in archives, as text or as one JSON array.
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
    bool m_json = false;
};

#endif
