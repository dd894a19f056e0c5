#ifndef ZELWINDOW_H
#define ZELWINDOW_H

#include <QWidget>

#include <optional>

class QLabel;
class ZelWindow;

// The title bar of a ZelWindow: two lines of rich text, and buttons to minimise, maximise and close
// the window.
class ZelWindowTitle : public QWidget
{
    Q_OBJECT
public:
    // Has no effect, because this title bar shows no device.
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

// A top-level window that draws its own border and title bar. Dragging the title bar moves the
// window, a double click on it maximises or restores the window, and dragging an edge or a corner
// resizes it. The window system (X11 or Wayland) does the actual moving and resizing.
class ZelWindow : public QWidget
{
    Q_OBJECT
public:
    // parent and flags are those of any QWidget. The window system never adds a frame.
    explicit ZelWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    // Places the widget below the title bar and takes ownership of it. The widget is shown with the
    // window and gets the focus first. Call this once.
    void setCentralWidget(QWidget *widget);

    // Sets the text of the title bar, as rich text. Task bars show the plain title, which is set
    // with QWidget::setWindowTitle.
    void setWindowTitle(const QString &richText);

    // Moves and resizes the window, in pixels. Accepts any numbers: the window never becomes
    // smaller than its title bar and content need, or larger than all screens together. If its
    // title bar would be out of reach, the window is placed on the primary screen.
    void setGeometry(int left, int top, int width, int height);

    // Returns the title bar, which the window owns.
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
    [[nodiscard]] bool _isReachable(const QRect &frame) const;
    [[nodiscard]] int _border() const;
    // The smallest size at which the title bar and the content are usable.
    [[nodiscard]] QSize _leastSize() const;
    void _layOut();
    void _showState();

    ZelWindowTitle *m_title;
    QWidget *m_content = nullptr;
    // Where the title bar was pressed, while that press can still become a drag.
    std::optional<QPoint> m_pressed;
};

#endif
