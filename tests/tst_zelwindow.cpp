#include "zel/zelstyle.h"
#include "zel/zelwindow.h"

#include <QtTest>
#include <QtWidgets>

class tst_ZelWindow : public QObject
{
    Q_OBJECT

    QStyle *m_style = new ZelStyle; // The application owns it.

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(m_style); }

    // Qt's own styles show the focus only while the user uses the keyboard.
    void focusShowsAfterClick()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        const QList<QWidget *> widgets = {new QPushButton, new QRadioButton, new QLineEdit,
                                          new QComboBox, new QListWidget};
        for (QWidget *widget : widgets)
            layout.addWidget(widget);
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

    // On one screen of 800 by 800 pixels.
    void geometry()
    {
        ZelWindow window;
        window.setCentralWidget(new QPushButton("A text that the window may not cut off"));
        const QSize least = window.minimumSize();
        const int half = window.zelWindowTitle()->sizeHint().height() / 2;
        QVERIFY(half > 10 && least.width() > 150 && least.height() > 3 * half);
        constexpr int MIN = std::numeric_limits<int>::min(), MAX = std::numeric_limits<int>::max();
        const struct {
            int left, top, width, height;
            QRect frame;
        } rows[] = {{10, 20, 300, 200, {10, 20, 300, 200}},
                    {-180, -half, 300, 200, {-180, -half, 300, 200}},
                    {-181, 20, 300, 200, {0, 20, 300, 200}},
                    {680, 800 - half - 1, 300, 200, {680, 800 - half - 1, 300, 200}},
                    {681, 20, 300, 200, {500, 20, 300, 200}},
                    {10, -half - 2, 300, 200, {10, 0, 300, 200}},
                    {10, 802 - half, 300, 200, {10, 600, 300, 200}},
                    {0, 0, 0, -1, {{0, 0}, least}},
                    {MIN, MIN, MIN, MIN, {{0, 0}, least}},
                    {MAX, MAX, MAX, MAX, {0, 0, 800, 800}}};
        for (const auto &[left, top, width, height, frame] : rows) {
            window.setGeometry(left, top, width, height);
            QCOMPARE(window.geometry(), frame);
        }

        // The cursor shows where the window can be resized.
        window.setGeometry(10, 20, 300, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const std::pair<QPoint, Qt::CursorShape> places[] = {
            {{10, 1}, Qt::SizeFDiagCursor},  {{150, 1}, Qt::SizeVerCursor},
            {{298, 3}, Qt::SizeBDiagCursor}, {{298, 100}, Qt::SizeHorCursor},
            {{2, 195}, Qt::SizeBDiagCursor}, {{20, 100}, Qt::ArrowCursor}};
        for (const auto &[place, shape] : places) {
            QTest::mouseMove(window.windowHandle(), place);
            QCOMPARE(window.cursor().shape(), shape);
        }
    }
};

QTEST_MAIN(tst_ZelWindow)
#include "tst_zelwindow.moc"
