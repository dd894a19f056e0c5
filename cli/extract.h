#ifndef EXTRACT_H
#define EXTRACT_H

#include "cli/command.h"
#include "cli/streamfiles.h"
#include "cli/targets.h"

// `vrk3 extract`: writes the payloads of streams, byte for byte.
class cExtract : public cCommand
{
public:
    cExtract();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    RESULT_T process(const ARCHIVE_T &archive, cProgress &progress) const override;

private:
    cTargets m_targets;
    STREAM_CHOICE_T m_choice;
    QString m_index; // empty for none
};

#endif
