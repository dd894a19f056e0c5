#ifndef NMEA_H
#define NMEA_H

#include <QByteArray>
#include <QByteArrayView>
#include <QObject>

#include <array>

// Knots to metres per second.
inline constexpr double KNOTS_TO_MPS = 0.514444444;

// The fix as it has been told up to now: each sentence updates the fields that it carries.
struct nmea_data {
    bool valid = false; // the last GPRMC said so
    double time = 0;    // seconds since midnight, UTC, with fraction
    double date = 0; // local midnight of the UTC date, seconds since 1970; 4294967295 if unreadable
    double lat = 0;  // decimal degrees, north positive
    double lon = 0;  // decimal degrees, east positive
    double alt = 0;  // metres
    double speed = 0;  // metres per second
    double course = 0; // degrees
};

// The sentences that the decoder reads, in the order in which its account counts them.
enum { NMEA_GPGGA, NMEA_GPRMC, NMEA_PGRME, NMEA_KINDS };

// What became of the sentences that began with a name that the decoder reads.
struct NMEA_ACCOUNT_T {
    using counts = std::array<qint64, NMEA_KINDS>;
    counts accepted{};
    counts badChecksum{};
    counts tooFewFields{};
    counts malformed{}; // cut short, or with a character that such a sentence does not have
    qint64 points = 0;  // records emitted
};

// Decodes the text of a GPS receiver: the sentences GPGGA, GPRMC and PGRME; all others are skipped.
//
// The text comes in chunks that may end anywhere; CR and LF count nowhere. A chunk is read up to
// its first zero byte. After each sentence with a good checksum the whole record is emitted, once a
// GPRMC has declared the fix valid. Nothing in the text is an error. What can no longer become a
// sentence is let go at once, so that only an unfinished sentence is held from one chunk to the
// next.
class cNmea : public QObject
{
    Q_OBJECT

public:
    explicit cNmea(QObject *parent = nullptr);

    const NMEA_ACCOUNT_T &account() const { return m_account; }

public Q_SLOTS:
    // May emit any number of records. The chunk is not needed behind the call.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    // Good for the length of the call.
    void signal_Data(const nmea_data &n);

private:
    // Fields that a sentence must have behind its name, and the only ones that are read.
    static constexpr int FIELDS_READ = 9;
    static constexpr qsizetype CHECKSUM_LENGTH = 2;

    enum { STATE_SKIP, STATE_NAME, STATE_FIELDS, STATE_CHECKSUM };

    const char *_take(const char *p, const char *end);
    const char *_takeName(const char *p, const char *end);
    void _giveUp();
    void _letGo();
    void _sentence();
    QByteArrayView _field(int index) const { return m_fields.at(size_t(index)); }
    bool _splitFields(QByteArrayView fields);

    static std::array<char, CHECKSUM_LENGTH> _nmeaChecksum(QByteArrayView sentence);
    void _gpgga();
    void _gprmc();
    void _pgrme();
    static double _getDouble(QByteArrayView field);
    static double _getDegreese(QByteArrayView field);
    double _getDate(QByteArrayView field);
    static double _getTime(QByteArrayView field);

    // The sentence at hand, from behind its dollar sign on, without CR and LF.
    QByteArray m_text;
    int m_state = STATE_SKIP;
    qsizetype m_star = 0; // offset of the asterisk in m_text
    int m_kind = 0;       // of the sentence at hand
    std::array<QByteArrayView, FIELDS_READ> m_fields;
    nmea_data m_fix;
    NMEA_ACCOUNT_T m_account;
    // What counts of the last date field: only a new one is taken through the calendar.
    QByteArray m_dateField;
    double m_date = 0;
};

#endif
