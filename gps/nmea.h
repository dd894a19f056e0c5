#ifndef NMEA_H
#define NMEA_H

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QObject>
#include <QVarLengthArray>

#include <array>

// Knots to metres per second.
inline constexpr double KNOTS_TO_MPS = 0.514444444;

// The most recent fix. Each sentence updates the fields that it contains; the others keep their
// values.
struct nmea_data {
    bool valid = false; // the status of the last GPRMC was "A"
    double time = 0;    // UTC, seconds since midnight, with fraction
    double date = 0; // local midnight of the UTC date, seconds since 1970; 4294967295 if unreadable
    double lat = 0;  // decimal degrees, north positive
    double lon = 0;  // decimal degrees, east positive
    double alt = 0;  // metres
    double speed = 0;  // metres per second
    double course = 0; // degrees
};

// The sentences that the decoder reads; indexes into NMEA_NAMES and the counts of its account.
enum { NMEA_GPGGA, NMEA_GPRMC, NMEA_PGRME, NMEA_KINDS };
inline constexpr std::array<const char *, NMEA_KINDS> NMEA_NAMES = {"GPGGA", "GPRMC", "PGRME"};

// Counts the sentences that began with one of NMEA_NAMES, by outcome.
struct NMEA_ACCOUNT_T {
    using counts = std::array<qint64, NMEA_KINDS>;
    counts accepted{};
    counts badChecksum{};
    counts tooFewFields{}; // fewer than the nine fields that a GPGGA or GPRMC needs
    counts malformed{};    // cut off, or with a character that does not belong in a sentence
    qint64 points = 0;     // records emitted
    // Records whose position was sent by a GPGGA without a fix and is not 0, 0.
    qint64 invalidPoints = 0;
    // Positions in accepted sentences, by the number of decimals of their minutes. The decoder
    // expects four. The last entry counts the positions with nine or more.
    std::array<qint64, 10> decimals{};
};

// Decodes the text of a GPS receiver: the sentences GPGGA, GPRMC and PGRME. All others are skipped.
//
// The text arrives in chunks that may end anywhere; CR and LF are ignored. A chunk is read up to
// its first zero byte. As long as the last GPRMC declares the fix valid, the whole record is
// emitted after each accepted sentence: one with a correct checksum and enough fields. No input is
// an error. Text that can no longer become a sentence is discarded at once, so only an unfinished
// sentence is kept between chunks.
class cNmea : public QObject
{
    Q_OBJECT

public:
    explicit cNmea(QObject *parent = nullptr);

    const NMEA_ACCOUNT_T &account() const { return m_account; }

public Q_SLOTS:
    // Decodes a chunk, which need not outlive the call. May emit any number of records.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    // A decoded record. Valid only during the call.
    void signal_Data(const nmea_data &n);

private:
    // The number of fields that are read. A GPGGA or GPRMC needs at least as many after its name.
    static constexpr int FIELDS_READ = 9;
    static constexpr qsizetype CHECKSUM_LENGTH = 2;
    // The memory of longer text is freed after use. No real sentence is this long.
    static constexpr qsizetype TEXT_KEPT = 256;

    enum { STATE_SKIP, STATE_NAME, STATE_FIELDS, STATE_CHECKSUM };

    const char *_take(const char *p, const char *end);
    const char *_takeName(const char *p, const char *end);
    void _reject();
    void _discard();
    void _sentence();
    QByteArrayView _field(int index) const { return m_fields.at(size_t(index)); }
    bool _splitFields(QByteArrayView fields);

    static std::array<char, CHECKSUM_LENGTH> _nmeaChecksum(QByteArrayView sentence);
    void _gpgga();
    void _gprmc();
    void _pgrme();
    void _position(int index);
    void _countDecimals(QByteArrayView lat, QByteArrayView lon);
    static double _getDouble(QByteArrayView field);
    static double _getDegreese(QByteArrayView field);
    double _getDate(QByteArrayView field);
    double _midnight(const QByteArray &date);
    static double _getTime(QByteArrayView field);

    // The unfinished sentence, starting after its dollar sign, without CR and LF.
    QVarLengthArray<char, TEXT_KEPT> m_text;
    int m_state = STATE_SKIP;
    qsizetype m_star = 0; // offset of the asterisk in m_text
    int m_kind = 0;       // of the unfinished sentence, an index into NMEA_NAMES
    std::array<QByteArrayView, FIELDS_READ> m_fields;
    nmea_data m_fix;
    bool m_isInvalid = false; // its position was sent by a GPGGA without a fix and is not 0, 0
    NMEA_ACCOUNT_T m_account;
    // The digits of the last date field and its value.
    QByteArray m_dateField;
    double m_date = 0;
    // The dates so far, as ddmmyy, and their values: each is converted only once.
    QHash<int, double> m_dates;
};

#endif
