#ifndef PLOT_H
#define PLOT_H

#include "cli/command.h"
#include "cli/targets.h"

// `vrk3 plot`: draws the tracks of archives as SVG pictures.
class cPlot : public cCommand
{
public:
    cPlot();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    RESULT_T process(const ARCHIVE_T &archive, cProgress &progress) const override;

private:
    cTargets m_targets;
};

#endif
