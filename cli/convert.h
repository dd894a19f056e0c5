#ifndef CONVERT_H
#define CONVERT_H

#include "cli/command.h"
#include "cli/targets.h"

struct FORMAT_T;

// `vrk3 convert`: writes the tracks of archives in one of the four formats, with the same bytes as
// the window.
class cConvert : public cCommand
{
public:
    cConvert();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    RESULT_T process(const ARCHIVE_T &archive, cProgress &progress) const override;

private:
    cTargets m_targets;
    const FORMAT_T *m_format = nullptr;
};

#endif
