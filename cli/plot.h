#ifndef PLOT_H
#define PLOT_H

#include "cli/command.h"
#include "cli/targets.h"

// `vrk3 plot`: the tracks of archives as pictures.
class cPlot : public cCommand
{
public:
    cPlot();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    QString process(const QString &archive) override;

private:
    cTargets m_targets;
    QList<FILEID_T> m_inputs;
};

#endif
