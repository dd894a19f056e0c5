#include "ui/globals.h"
#include "ui/winmain.h"
#include "zel/zelstyle.h"
#include "zel/zelwindow.h"

#include <QtTest>
#include <QtWidgets>

// The real format choice in its real frame, put together as main does it.
class tst_WinMain : public QObject
{
    Q_OBJECT
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
        m_frame->setWindowTitle(
            R"(<i><FONT size="-1">VrkTrk</FONT><FONT size="1">&nbsp;<br>1.0.0</FONT></i>)");
        m_frame->setGeometry(100, 100, 480, 220);
        m_frame->show();
        m_frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    }

    // A format is chosen (or none), then a button or a key pressed.
    void choiceBecomesParams_data()
    {
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("filter");
        const auto row = [](const QStringList &clicks, Qt::Key key, const char *filter) {
            QTest::addRow("%s %x", qPrintable(clicks.join('+')), key)
                << clicks << int(key) << filter;
        };
        row({"OK"}, {}, "Raw GPS output file (*.txt)");
        row({"GPS Exchange Format (.gpx)", "OK"}, {}, "GPS Exchange Format (*.gpx)");
        row({"OziExplorer track (.plt)", "OK"}, {}, "OziExplorer track (*.plt)");
        row({"GoogleEarth KML (.kml)", "OK"}, {}, "GoogleEarth track (*.kml)");
        row({"GoogleEarth KML (.kml)", "Cancel"}, {}, "");
        row({}, Qt::Key_Return, "Raw GPS output file (*.txt)");
        row({"GoogleEarth KML (.kml)"}, Qt::Key_Enter, "GoogleEarth track (*.kml)");
        row({"GoogleEarth KML (.kml)"}, Qt::Key_Escape, "");
        row({"Tab", "Tab"}, Qt::Key_Return, "Raw GPS output file (*.txt)"); // On Cancel.
    }

    void choiceBecomesParams()
    {
        QFETCH(QStringList, clicks);
        QFETCH(int, key);
        QFETCH(QString, filter);
        for (const QString &click : clicks) {
            if (click == "Tab")
                QTest::keyClick(m_frame->windowHandle(), Qt::Key_Tab);
            for (auto *button : m_frame->findChildren<QAbstractButton *>()) {
                if (name(button) == click)
                    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
            }
        }
        if (key)
            QTest::keyClick(m_frame->windowHandle(), Qt::Key(key));
        QTRY_VERIFY(!m_frame->isVisible());
        QCOMPARE(m_params.filter, filter);
        QCOMPARE(m_params.action, filter.isEmpty() ? 0 : 1);
    }

    void tabReachesAll()
    {
        QStringList names;
        for (int i = 0; i < 6; ++i) {
            names << name(QApplication::focusWidget());
            QTest::keyClick(m_frame->windowHandle(), Qt::Key_Tab);
        }
        QCOMPARE(names.join(' '), "Полные данные GPS (.txt) OK Cancel Свернуть Развернуть Закрыть");
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
        const bool loaded = own.load(VRKTRK_QM "/vrktrk" + language) &&
                            qt.load(VRKTRK_QM "/qtbase" + language);
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

private:
    // As a screen reader tells it.
    static QString name(QWidget *widget)
    {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    }

    QStyle *m_style = new ZelStyle;
    PARAMS_T m_params;
    std::unique_ptr<ZelWindow> m_frame;
};

QTEST_MAIN(tst_WinMain)
#include "tst_winmain.moc"
