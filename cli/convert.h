#ifndef CONVERT_H
#define CONVERT_H

#include "cli/command.h"
#include "cli/targets.h"
#include "cli/trackstats.h"

struct FORMAT_T;

// `vrk3 convert`: the tracks of archives in one of the four formats, in the bytes that the window
// would write.
class cConvert : public cCommand
{
public:
    cConvert();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    QString process(const QString &archive) override;

private:
    bool _pump(cInputFile &input, cOutputFile &output, cTrackStats &stats,
               ACCOUNT_T &account) const;

    cTargets m_targets;
    const FORMAT_T *m_format = nullptr;
    QList<FILEID_T> m_inputs;
};

#endif
