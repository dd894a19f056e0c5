#include "track/trackcsv.h"

#include <cmath>

// No value needs quotes, because values consist of digits, letters, points, dashes and colons.
bool cTrackCsv::write(const cTrack &track, const QString &)
{
    const auto optional = [](double value) {
        return std::isnan(value) ? QByteArray() : number(value);
    };
    Q_EMIT signal_Data("segment,time_utc,latitude_deg,longitude_deg,altitude_m,speed_mps,"
                       "course_deg,satellites,hdop,fix\r\n");
    int segment = 0;
    for (cTrackCursor at(track); !at.atEnd(); at.next()) {
        const FIX_T &fix = at.fix();
        segment += at.startsSegment();
        QByteArray line = QByteArray::number(segment) + ',';
        if (fix.clock == FIX_CLOCK::FULL)
            line += timeText(fix.time);
        line += ',' + degrees(fix.lat) + ',' + degrees(fix.lon);
        for (const double value : {fix.altitude, fix.speed, fix.course})
            line += ',' + optional(value);
        line += ',';
        if (fix.satellites >= 0)
            line += QByteArray::number(fix.satellites);
        line += ',' + optional(fix.hdop) + ',' + kind(fix) + "\r\n";
        Q_EMIT signal_Data(line);
    }
    return true;
}
