#include "driver/outputnames.h"
#include "driver/run.h"
#include "ui/globals.h"
#include "ui/winmain.h"
#include "zel/zelstyle.h"
#include "zel/zelwindow.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace
{
// Returns the name that a screen reader says.
QString _name(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}
} // namespace

// The real format choice in the real frame, combined as in main.
class tst_WinMain : public QObject
{
    Q_OBJECT

    QStyle *m_style = new ZelStyle; // The application owns it.
    PARAMS_T m_params;
    std::unique_ptr<ZelWindow> m_frame;

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(m_style); }

    void init()
    {
        m_params = {{}, {}, {}, {}, {}, 5};
        gParams = &m_params;
        m_frame = std::make_unique<ZelWindow>();
        gZelWindow = m_frame.get();
        m_frame->setCentralWidget(new CWinMain);
        QCOMPARE(m_params.action, 0);
        m_frame->setWindowTitle(u"<i>VrkTrk<FONT size=\"1\">&nbsp;<br>1.0.0</FONT></i>"_s);
        m_frame->setGeometry(100, 100, 480, 220);
        m_frame->show();
        m_frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    }

    // A button is clicked, then keys are pressed.
    void choiceBecomesParams()
    {
        const char *const rows[][3] = {
            {"OK", "", "Raw GPS output file (*.txt)"},
            {"GPS Exchange Format (.gpx)", "Return", "GPS Exchange Format (*.gpx)"},
            {"OziExplorer track (.plt)", "Enter", "OziExplorer track (*.plt)"},
            {"GoogleEarth KML (.kml)", "Return", "GoogleEarth track (*.kml)"},
            {"", "Tab, Tab, Return", "Raw GPS output file (*.txt)"}, // The focus is on Cancel.
            {"", "Tab, Tab, Space", ""},
            {"", "Shift+Tab, Space", ""}, // The button that closes the frame.
            {"GoogleEarth KML (.kml)", "Escape", ""},
            {"Cancel", "", ""}};
        for (const auto &[click, keys, filter] : rows) {
            init();
            for (auto *button : m_frame->findChildren<QAbstractButton *>()) {
                if (_name(button) == click)
                    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
            }
            const QKeySequence sequence(keys);
            for (uint i = 0; i < static_cast<uint>(sequence.count()); ++i)
                QTest::keyClick(m_frame->windowHandle(), sequence[i].key(),
                                sequence[i].keyboardModifiers());
            QTRY_VERIFY(!m_frame->isVisible());
            QCOMPARE(m_params.filter, filter);
            QCOMPARE(m_params.action, *filter ? 1 : 0);
        }
    }

    void filterDecidesTheName()
    {
        const char *const rows[][3] = {{"GPS Exchange Format (*.gpx)", "/a.b/c.vrk3", "/a.b/c.gpx"},
                                       {"Raw GPS output file (*.txt)", "б.архив", "б.txt"},
                                       {"(Pfad) (*.plt)", "a b.vrk3.कि", "a b.vrk3.plt"},
                                       {"*.kml", "a.vrk3", "a"},
                                       {"(*.kml)", "/a.b/track", "/a.b/track"},
                                       {"(*.kml)", "a.vrk3\n", "a.vrk3\n"}};
        for (const auto &[filter, input, output] : rows)
            QCOMPARE(proposedOutputs({u"x.y"_s, input}, filter).last(), output);
    }

    void percentFollowsAGrowingFile()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        qint64 known = 0;
        const int rows[][3] = {
            {0, 0, 0}, {200, 1, 0}, {200, 199, 99}, {300, 200, 100}, {300, 201, 67}};
        for (const auto &[size, position, percent] : rows) {
            QVERIFY(file.resize(size) && file.seek(position));
            QCOMPARE(percentRead(file, &known), percent);
        }
    }

    void nothingIsCutOff_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("sources") << QString();
        const QDir::Filters files = QDir::Files | QDir::NoSymLinks;
        for (const QString &name : QDir(VRKTRK_QM).entryList({"vrktrk_*.qm"}, files))
            QTest::newRow(qPrintable(name)) << name.mid(6);
    }

    void nothingIsCutOff()
    {
        QFETCH(QString, language);
        QTranslator own, qt;
        const bool loaded =
            own.load(VRKTRK_QM "/vrktrk" + language) && qt.load(VRKTRK_QM "/qtbase" + language);
        QCOMPARE(loaded, !language.isEmpty());
        QCoreApplication::installTranslator(&own);
        QCoreApplication::installTranslator(&qt);
        for (int points = 9; points <= 11; ++points) {
            QApplication::setFont(QFont(QApplication::font().family(), points));
            init();
            QCOMPARE(m_frame->geometry(), QRect(100, 100, 480, 220));
            for (const QWidget *widget : m_frame->findChildren<QWidget *>()) {
                const auto *label = qobject_cast<const QLabel *>(widget);
                if (!label && !qobject_cast<const QAbstractButton *>(widget))
                    continue;
                const QSize need =
                    label ? QSize(0, label->heightForWidth(label->width())) : widget->sizeHint();
                QCOMPARE(need.expandedTo(widget->size()), widget->size());
                const QRect place(widget->mapTo(m_frame.get(), QPoint()), widget->size());
                QVERIFY(m_frame->rect().adjusted(1, 1, -1, -1).contains(place));
            }
        }
    }
};

QTEST_MAIN(tst_WinMain)
#include "tst_winmain.moc"
