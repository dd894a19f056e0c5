#include "globals.h"
#include "winmain.h"
#include "zelstyle.h"
#include "zelwindow.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

// The real format choice in its real frame, put together as main does it.
class tst_WinMain : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(m_style);
        m_font = QApplication::font();
    }

    void init()
    {
        m_params = {};
        m_params.action = 5;
        gParams = &m_params;
        m_frame = std::make_unique<ZelWindow>();
        gZelWindow = m_frame.get();
        m_frame->setCentralWidget(new CWinMain);
        QCOMPARE(m_params.action, 0);
        m_frame->setGeometry(100, 100, 480, 220);
    }

    void cleanup() { QApplication::setFont(m_font); }

    // The format is chosen by its button; then a key is pressed, or a button if there is no key.
    void choiceBecomesParams_data()
    {
        QTest::addColumn<QString>("radio");
        QTest::addColumn<QString>("press");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("filter");
        const QString raw = "Raw GPS output file (*.txt)";
        const QString kml = "GoogleEarth track (*.kml)";
        QTest::newRow("untouched") << ""
                                   << "OK" << 0 << raw;
        QTest::newRow("raw") << "rbFormatRaw"
                             << "OK" << 0 << raw;
        QTest::newRow("gpx") << "rbFormatGpx"
                             << "OK" << 0 << "GPS Exchange Format (*.gpx)";
        QTest::newRow("plt") << "rbFormatPlt"
                             << "OK" << 0 << "OziExplorer track (*.plt)";
        QTest::newRow("kml") << "rbFormatKml"
                             << "OK" << 0 << kml;
        QTest::newRow("cancel") << "rbFormatKml"
                                << "Cancel" << 0 << "";
        QTest::newRow("closed") << "rbFormatKml"
                                << "Закрыть" << 0 << "";
        QTest::newRow("return") << ""
                                << "" << int(Qt::Key_Return) << raw;
        QTest::newRow("enter") << "rbFormatKml"
                               << "" << int(Qt::Key_Enter) << kml;
        QTest::newRow("escape") << "rbFormatKml"
                                << "" << int(Qt::Key_Escape) << "";
    }

    void choiceBecomesParams()
    {
        QFETCH(QString, radio);
        QFETCH(QString, press);
        QFETCH(int, key);
        QFETCH(QString, filter);
        show();
        for (auto *button : m_frame->findChildren<QAbstractButton *>()) {
            if (!radio.isEmpty() && button->objectName() == radio)
                QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
        }
        for (auto *button : m_frame->findChildren<QAbstractButton *>()) {
            if (!press.isEmpty() && name(button) == press)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        if (key)
            QTest::keyClick(m_frame->windowHandle(), Qt::Key(key));
        QTRY_VERIFY(!m_frame->isVisible());
        QCOMPARE(m_params.filter, filter);
        QCOMPARE(m_params.action, filter.isEmpty() ? 0 : 1);
    }

    void tabReachesAll()
    {
        show();
        QStringList names;
        for (int i = 0; i < 6; ++i) {
            names << name(QApplication::focusWidget());
            QTest::keyClick(m_frame->windowHandle(), Qt::Key_Tab);
        }
        QCOMPARE(names, QStringList({"Полные данные GPS (.txt)", "OK", "Cancel", "Свернуть",
                                     "Развернуть", "Закрыть"}));
    }

    void nothingIsCutOff()
    {
        m_frame->setWindowTitle(
            R"(<i><FONT size="-1">VrkTrk</FONT><FONT size="1">&nbsp;<br>1.0.0</FONT></i>)");
        show();
        for (int points = 9; points <= 11; ++points) {
            QApplication::setFont(QFont(m_font.family(), points));
            QCoreApplication::processEvents();
            QCOMPARE(m_frame->geometry(), QRect(100, 100, 480, 220));
            for (const QWidget *widget : m_frame->findChildren<QWidget *>()) {
                const auto *label = qobject_cast<const QLabel *>(widget);
                if (!label && !qobject_cast<const QAbstractButton *>(widget))
                    continue;
                const QSize need =
                    label ? QSize(0, label->heightForWidth(label->width())) : widget->sizeHint();
                const QRect place(widget->mapTo(m_frame.get(), QPoint()), widget->size());
                QTRY_COMPARE(need.expandedTo(widget->size()), widget->size());
                QVERIFY(m_frame->rect().adjusted(1, 1, -1, -1).contains(place));
            }
        }
    }

private:
    void show()
    {
        m_frame->show();
        m_frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    }

    static QString name(const QWidget *widget)
    {
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        return button && !button->text().isEmpty() ? button->text() : widget->accessibleName();
    }

    // Handed over to the application.
    QStyle *m_style = new ZelStyle;
    PARAMS_T m_params;
    std::unique_ptr<ZelWindow> m_frame;
    QFont m_font;
};

QTEST_MAIN(tst_WinMain)
#include "tst_winmain.moc"
