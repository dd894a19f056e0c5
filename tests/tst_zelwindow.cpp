#include "zel/zelstyle.h"
#include "zel/zelwindow.h"

#include <QtTest>
#include <QtWidgets>

#include <cmath>

// Contrast of two colours as the Web Content Accessibility Guidelines define it.
static double _contrast(const QColor &a, const QColor &b)
{
    const auto part = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const auto light = [&](const QColor &c) {
        return 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF());
    };
    const auto [least, most] = std::minmax({light(a), light(b)});
    return (most + 0.05) / (least + 0.05);
}

class tst_ZelWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(m_style);
        QApplication::setPalette(QApplication::style()->standardPalette());
    }

    void textsStandOut()
    {
        using P = QPalette;
        const QList<P::ColorRole> plain = {P::Window, P::Base, P::AlternateBase};
        const QList<P::ColorRole> all = plain + QList{P::Button, P::Midlight, P::Light};
        const QList<std::pair<P::ColorRole, QList<P::ColorRole>>> texts = {
            {P::WindowText, all},
            {P::Text, plain},
            {P::ButtonText, all},
            {P::BrightText, all},
            {P::Link, plain},
            {P::LinkVisited, plain},
            {P::PlaceholderText, plain},
            {P::ToolTipText, {P::ToolTipBase}},
            {P::HighlightedText, {P::Highlight}}};
        const P palette = QApplication::palette();
        for (const auto group : {P::Active, P::Inactive}) {
            QVERIFY(_contrast(0xc0c0ff, palette.color(group, P::Window)) >= 4.5);
            for (const auto &[text, grounds] : texts) {
                for (const auto ground : grounds)
                    QVERIFY2(_contrast(palette.color(group, text), palette.color(group, ground)) >=
                                 4.5,
                             qPrintable(QDebug::toString(text) + QDebug::toString(ground)));
            }
        }
    }

    // Qt's own style shows the focus only while the keyboard is used.
    void focusShowsAfterClick()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        const QList<QWidget *> widgets = {new QPushButton, new QRadioButton, new QCheckBox,
                                          new QToolButton, new QLineEdit,    new QComboBox,
                                          new QListWidget};
        for (QWidget *widget : widgets) {
            widget->setFocusPolicy(Qt::StrongFocus);
            layout.addWidget(widget);
        }
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (QWidget *widget : widgets) {
            widget->clearFocus();
            const QImage without = widget->grab().toImage();
            widget->setFocus(Qt::MouseFocusReason);
            QVERIFY2(widget->grab().toImage() != without, widget->metaObject()->className());
        }
    }

    void frameAnswersTheMouse()
    {
        ZelWindow window;
        window.setCentralWidget(new QPushButton("wider than the window at first"));
        window.setGeometry(10, 20, 60, 30);
        const QColor border = window.grab().toImage().pixelColor(0, 10); // Not yet active.
        QVERIFY(_contrast(border, window.palette().color(QPalette::Window)) >= 3);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.geometry(), QRect(10, 20, 60, 30));
        window.setGeometry(10, 20, 300, 200);

        const std::pair<QPoint, Qt::CursorShape> places[] = {
            {{10, 1}, Qt::SizeFDiagCursor},  {{150, 1}, Qt::SizeVerCursor},
            {{298, 3}, Qt::SizeBDiagCursor}, {{298, 100}, Qt::SizeHorCursor},
            {{2, 195}, Qt::SizeBDiagCursor}, {{20, 100}, Qt::ArrowCursor}};
        for (const auto &[place, shape] : places) {
            QTest::mouseMove(window.windowHandle(), place);
            QCOMPARE(window.cursor().shape(), shape);
        }

        const auto buttons = window.zelWindowTitle()->findChildren<QToolButton *>();
        QTest::mouseClick(buttons.at(1), Qt::LeftButton);
        QVERIFY(window.isMaximized());
        QCOMPARE(buttons.at(1)->accessibleName(), "Восстановить");
        QTest::mouseDClick(window.zelWindowTitle(), Qt::LeftButton, {}, QPoint(40, 12));
        QVERIFY(!window.isMaximized());
        QCOMPARE(window.geometry(), QRect(10, 20, 300, 200));
    }

private:
    QStyle *m_style = new ZelStyle;
};

QTEST_MAIN(tst_ZelWindow)
#include "tst_zelwindow.moc"
