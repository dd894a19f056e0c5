#ifndef FIXREADER_H
#define FIXREADER_H

#include "track/fix.h"
#include "track/fixdater.h"
#include "track/sentencesplitter.h"

#include <QByteArray>
#include <QGeoPositionInfo>
#include <QList>
#include <QObject>

#include <array>
#include <initializer_list>
#include <memory>
#include <optional>

class cNmeaLibrary;

// Reads the fixes in the text of a GPS receiver. Positions come from the sentences RMC, GGA, GNS
// and GLL of any talker; VTG, ZDA and GSA add what these leave out.
//
// All sentences of one instant make one fix. If their positions differ, the one with the most
// decimals is used, or the first of these if there are several. A second position with the same
// time from the same kind of sentence is a separate fix (FIX_T::repeat). A sentence that the
// receiver marks invalid (status V, quality 0, no position) makes no fix, and neither does a
// position of exactly 0, 0. Other values that cannot be true are ignored.
//
// The date comes from an RMC or ZDA of the same instant. cFixDater dates fixes without one.
//
// Fixes are emitted in the order of the text, which is not always chronological. The text may
// arrive in chunks cut anywhere. No input is an error. Memory is bounded.
class cFixReader : public QObject
{
    Q_OBJECT

public:
    explicit cFixReader(QObject *parent = nullptr);
    ~cFixReader() override;

    // Call this after the last chunk: it emits the fixes that are still waiting. Text that follows
    // is read as that of another receiver, and its fixes without a date are placed after the
    // undated ones emitted so far.
    void finish();

    const cSentenceSplitter &sentences() const { return m_splitter; }
    qint64 fixes() const { return m_dater.fixes(); } // emitted so far

public Q_SLOTS:
    // A chunk of receiver text, which need not outlive the call. May emit any number of fixes.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    // Valid only during the call.
    void signal_Data(const FIX_T &fix);

private Q_SLOTS:
    void _slot_Sentence(const QByteArray &sentence);

private:
    static constexpr int NO_TIME = -1;
    static constexpr size_t FIELDS_READ = 18;

    // What the sentences of one instant have reported so far.
    struct INSTANT_T {
        int time = NO_TIME;        // milliseconds of the day
        std::optional<qint64> day; // since 1970-01-01
        bool located = false;      // the rest is used only if this is set
        FIX_T fix;                 // its time is not filled in yet
        qsizetype decimals = 0;    // of its position
        // The names of the sentences with a position, and the positions as they wrote them.
        QList<std::pair<QByteArray, QByteArray>> positions;

        QByteArray position(QByteArrayView name) const;
    };

    QByteArrayView _field(size_t index) const { return m_fields.at(index); }
    void _split(QByteArrayView sentence);
    QGeoPositionInfo _ask(std::initializer_list<QByteArrayView> fields);
    INSTANT_T *_find(int time);
    INSTANT_T &_open(int time);
    INSTANT_T *_locate(int time, size_t first, QByteArrayView speed = {},
                       QByteArrayView course = {});
    static void _move(INSTANT_T &instant, const QGeoPositionInfo &info);
    void _rmc();
    void _gga();
    void _gll();
    void _vtg();
    void _zda();
    void _gsa();
    void _enterDay(int time, const std::optional<qint64> &day);
    void _close(const INSTANT_T &instant);

    cSentenceSplitter m_splitter;
    std::unique_ptr<cNmeaLibrary> m_library;
    QByteArray m_question;                            // the sentence for the library
    std::array<QByteArrayView, FIELDS_READ> m_fields; // of the current sentence, its name included
    size_t m_fieldCount = 0;
    QList<INSTANT_T> m_open; // instants that still accept sentences, the newest last
    cFixDater m_dater;
};

#endif
