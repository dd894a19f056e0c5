#include "zelstyle.h"
#include "zelwindow.h"

#include <QtTest>
#include <QtWidgets>

#include <cmath>

namespace
{
// Relative luminance as the Web Content Accessibility Guidelines define it.
double _luminance(const QColor &colour)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double _contrast(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({_luminance(a), _luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}
} // namespace

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
        const QList<P::ColorRole> buttons = {P::Button, P::Midlight, P::Light};
        const QList<std::pair<P::ColorRole, QList<P::ColorRole>>> texts = {
            {P::WindowText, plain + buttons},
            {P::Text, plain},
            {P::ButtonText, buttons},
            {P::BrightText, plain + buttons},
            {P::Link, plain},
            {P::LinkVisited, plain},
            {P::PlaceholderText, plain},
            {P::ToolTipText, {P::ToolTipBase}},
            {P::HighlightedText, {P::Highlight}}};
        const P palette = QApplication::palette();
        for (const auto group : {P::Active, P::Inactive}) {
            for (const auto &[text, grounds] : texts) {
                for (const P::ColorRole ground : grounds)
                    QVERIFY2(_contrast(palette.color(group, text), palette.color(group, ground)) >=
                                 4.5,
                             qPrintable(QDebug::toString(text) + QDebug::toString(ground)));
            }
            QVERIFY(_contrast(0xc0c0ff, palette.color(group, P::Window)) >= 4.5);
        }
    }

    // Qt's own style shows the focus only while the keyboard is used.
    void focusShowsAfterClick()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        const QList<QWidget *> widgets = {new QPushButton("push"), new QRadioButton("radio"),
                                          new QCheckBox("check"),  new QToolButton,
                                          new QLineEdit,           new QComboBox,
                                          new QListWidget};
        for (QWidget *widget : widgets) {
            widget->setFocusPolicy(Qt::StrongFocus);
            layout.addWidget(widget);
        }
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (QWidget *widget : widgets) {
            widgets.at(widget == widgets.first() ? 1 : 0)->setFocus(Qt::MouseFocusReason);
            const QImage without = widget->grab().toImage();
            widget->setFocus(Qt::MouseFocusReason);
            QVERIFY2(widget->grab().toImage() != without, widget->metaObject()->className());
        }
    }

    void frameAnswersTheMouse()
    {
        ZelWindow window;
        window.setCentralWidget(new QPushButton("wider than the smallest window of this test"));
        window.setGeometry(10, 20, 60, 30);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.geometry(), QRect(10, 20, 60, 30));
        window.setGeometry(10, 20, 300, 200);

        const std::pair<QPoint, Qt::CursorShape> places[] = {
            {{1, 1}, Qt::SizeFDiagCursor},   {{10, 1}, Qt::SizeFDiagCursor},
            {{150, 1}, Qt::SizeVerCursor},   {{298, 3}, Qt::SizeBDiagCursor},
            {{298, 100}, Qt::SizeHorCursor}, {{298, 198}, Qt::SizeFDiagCursor},
            {{150, 198}, Qt::SizeVerCursor}, {{2, 195}, Qt::SizeBDiagCursor},
            {{20, 100}, Qt::ArrowCursor}};
        for (const auto &[place, shape] : places) {
            QTest::mouseMove(window.windowHandle(), place);
            QCOMPARE(window.cursor().shape(), shape);
        }

        QMap<QString, QToolButton *> buttons;
        for (auto *button : window.zelWindowTitle()->findChildren<QToolButton *>()) {
            QCOMPARE(button->toolTip(), button->accessibleName());
            buttons[button->accessibleName()] = button;
        }
        QTest::mouseClick(buttons["Развернуть"], Qt::LeftButton);
        QVERIFY(window.isMaximized());
        QCOMPARE(buttons["Развернуть"]->accessibleName(), "Восстановить");
        QTest::mouseDClick(window.zelWindowTitle(), Qt::LeftButton, {}, QPoint(40, 12));
        QVERIFY(!window.isMaximized());
        QCOMPARE(window.geometry(), QRect(10, 20, 300, 200));
        QTest::mouseClick(buttons["Свернуть"], Qt::LeftButton);
        QVERIFY(window.isMinimized());
        QTest::mouseClick(buttons["Закрыть"], Qt::LeftButton);
        QVERIFY(!window.isVisible());
    }

private:
    // Handed over to the application.
    QStyle *m_style = new ZelStyle;
};

QTEST_MAIN(tst_ZelWindow)
#include "tst_zelwindow.moc"
