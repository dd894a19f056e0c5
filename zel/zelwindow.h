#ifndef ZELWINDOW_H
#define ZELWINDOW_H

#include <QWidget>

#include <optional>

class QLabel;
class ZelWindow;

// The title bar of a ZelWindow: two lines of rich text and buttons to minimise, maximise and close.
class ZelWindowTitle : public QWidget
{
    Q_OBJECT
public:
    // Accepted and without effect: this title bar shows no device.
    void setHiddenDevice(bool hidden);

private:
    friend class ZelWindow;
    class Button;

    explicit ZelWindowTitle(ZelWindow *window);
    void _setText(const QString &richText);
    void _showState(bool active, bool maximised);

    QLabel *m_text;
    Button *m_maximise = nullptr;
};

// A top-level window that draws its own border and title bar. Dragging the title bar moves it, a
// double click there maximises and restores it, edges and corners resize it. Moving and resizing
// themselves are the window system's (X11 or Wayland).
class ZelWindow : public QWidget
{
    Q_OBJECT
public:
    // parent and flags as for any QWidget; the window system never gives it a frame.
    explicit ZelWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    // Puts the widget under the title bar and takes it over. It is shown with the window and gets
    // the keyboard first. To be called once.
    void setCentralWidget(QWidget *widget);

    // The text of the title bar, as rich text. The plain title, which task bars show, is set with
    // QWidget::setWindowTitle.
    void setWindowTitle(const QString &richText);

    // The title bar; it belongs to the window.
    [[nodiscard]] ZelWindowTitle *zelWindowTitle() const;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private Q_SLOTS:
    void _slot_Maximise();

private:
    [[nodiscard]] Qt::Edges _edgesAt(const QPoint &position) const;
    [[nodiscard]] bool _isOnTitle(const QPoint &position) const;
    [[nodiscard]] int _border() const;
    // At which title bar and content can be used.
    [[nodiscard]] QSize _leastSize() const;
    void _layOut();
    void _showState();

    ZelWindowTitle *m_title;
    QWidget *m_content = nullptr;
    // Where the title bar was pressed, as long as that can still become a drag.
    std::optional<QPoint> m_pressed;
};

#endif
