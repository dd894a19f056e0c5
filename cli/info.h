#ifndef INFO_H
#define INFO_H

#include "cli/command.h"
#include "cli/outputfile.h"

#include <memory>

// `vrk3 info`: what is in archives, as text or as one JSON array, on standard output.
class cInfo : public cCommand
{
public:
    cInfo();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    QString process(const QString &archive) override;
    QString finish() override;

private:
    void _write(const QByteArray &bytes);

    bool m_json = false;
    bool m_first = true;
    std::unique_ptr<cOutputFile> m_output;
};

#endif
