#ifndef CLI_TRACK_H
#define CLI_TRACK_H

#include "cli/command.h"
#include "cli/targets.h"
#include "track/track.h"

#include <optional>

struct FORMAT_T;
class cTrackSource;

// `vrk3 track`: writes the tracks of any receiver for map programs, one for each archive or a
// single one for all.
class cTrackCommand : public cCommand
{
public:
    cTrackCommand();

protected:
    void addOptions(QCommandLineParser &parser) override;
    QString readOptions(const QCommandLineParser &parser) override;
    RESULT_T process(const ARCHIVE_T &archive, cProgress &progress) const override;
    bool joinsArchives() const override { return m_join; }
    RESULT_T processAll(cProgress &progress, QList<RESULT_T> &parts) const override;

private:
    void _setUp(cTrack &track) const;
    RESULT_T _write(cTrackSource &source, const std::shared_ptr<cOutputFile> &output) const;

    cTargets m_targets;
    const FORMAT_T *m_format = nullptr;
    bool m_join = false;
    qint64 m_gap = cTrack::USUAL_GAP;
    std::optional<TRACK_LIMIT_T> m_from;
    std::optional<TRACK_LIMIT_T> m_until;
};

#endif
