#include "zel/zelwindow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int BORDER = 1;
// Both have a contrast of at least 3 to 1 with a window's background, because one window may cover
// another.
constexpr QRgb BORDER_ACTIVE = 0xffc0c0ff;
constexpr QRgb BORDER_INACTIVE = 0xff8a90a6;
// The width of the resize area along an edge, and the length of a corner.
constexpr int GRIP = 5;
constexpr int CORNER = 14;
// How far the content extends under the border and the title bar. Forms have margins made for a
// separate window, and with large fonts a small frame needs that space for text.
constexpr int OVERLAP = 4;
// How much of the title bar must be on a screen: its buttons and some space beside them, by which
// the window can be dragged.
constexpr int REACH = 120;

Qt::CursorShape _cursorFor(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

// Returns true if the widget may get the focus first. In a group of radio buttons, only the checked
// one may.
bool _isEntrance(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const bool passedOver = button && button->autoExclusive() && !button->isChecked();
    return (widget->focusPolicy() & Qt::TabFocus) && !passedOver;
}
} // namespace

// A button of the title bar. Its symbol is drawn rather than loaded, so that it is sharp at any
// scale and uses the colours of the palette.
class ZelWindowTitle::Button : public QToolButton
{
public:
    enum Sign { Minimise, Maximise, Restore, Close };

    Button(QWidget *parent, Sign sign, const QString &name) : QToolButton(parent)
    {
        setAutoRaise(true);
        setFocusPolicy(Qt::TabFocus);
        // Without a cursor of its own it would show the resize cursor of the window's edge.
        setCursor(Qt::ArrowCursor);
        setSign(sign, name);
    }

    void setSign(Sign sign, const QString &name)
    {
        m_sign = sign;
        setAccessibleName(name);
        setToolTip(name);
        update();
    }

    [[nodiscard]] QSize sizeHint() const override { return {28, 22}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QStylePainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(foregroundRole()), 1.3));
        painter.translate(QRectF(rect()).center());
        _drawSign(&painter);
    }

private:
    void _drawSign(QPainter *painter) const
    {
        switch (m_sign) {
        case Minimise:
            painter->drawLine(QPointF(-4.5, 3.5), QPointF(4.5, 3.5));
            break;
        case Maximise:
            painter->drawRect(QRectF(-4.5, -4.5, 9, 9));
            break;
        case Restore:
            painter->drawRect(QRectF(-4.5, -1.5, 6, 6));
            painter->drawPolyline(QPolygonF({{-1.5, -4.5}, {4.5, -4.5}, {4.5, 1.5}}));
            break;
        case Close:
            painter->drawLine(QPointF(-4.5, -4.5), QPointF(4.5, 4.5));
            painter->drawLine(QPointF(-4.5, 4.5), QPointF(4.5, -4.5));
            break;
        }
    }

    Sign m_sign = Close;
};

ZelWindowTitle::ZelWindowTitle(ZelWindow *window) : QWidget(window), m_text(new QLabel(this))
{
    // Created in the order of the keyboard focus.
    auto *minimise = new Button(this, Button::Minimise, tr("Свернуть"));
    m_maximise = new Button(this, Button::Maximise, tr("Развернуть"));
    auto *close = new Button(this, Button::Close, tr("Закрыть"));
    connect(minimise, SIGNAL(clicked()), window, SLOT(showMinimized()));
    connect(m_maximise, SIGNAL(clicked()), window, SLOT(_slot_Maximise()));
    connect(close, SIGNAL(clicked()), window, SLOT(close()));

    setAutoFillBackground(true);
    m_text->setTextFormat(Qt::RichText);
    // A long text is cut off; it must not widen the window.
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // The text must not catch the mouse, which drags the window.
    m_text->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 0, 4, 0);
    layout->setSpacing(2);
    layout->addWidget(m_text, 1);
    layout->addWidget(minimise);
    layout->addWidget(m_maximise);
    layout->addWidget(close);
}

void ZelWindowTitle::setHiddenDevice(bool) {}

void ZelWindowTitle::_setText(const QString &richText)
{
    // An empty last line takes no space.
    static const QRegularExpression emptyLine(uR"((&nbsp;)?<br>(?=(</\w+>)*\z))"_s);
    m_text->setText(QString(richText).remove(emptyLine));
}

void ZelWindowTitle::_showState(bool active, bool maximised)
{
    setBackgroundRole(active ? QPalette::Button : QPalette::Window);
    if (maximised)
        m_maximise->setSign(Button::Restore, tr("Восстановить"));
    else
        m_maximise->setSign(Button::Maximise, tr("Развернуть"));
}

ZelWindow::ZelWindow(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags | Qt::Window | Qt::FramelessWindowHint),
      m_title(new ZelWindowTitle(this))
{
    // Reports the mouse position even while it is over a child.
    setAttribute(Qt::WA_Hover);
    _showState();
}

void ZelWindow::setCentralWidget(QWidget *widget)
{
    m_content = widget;
    m_content->setParent(this);
    m_content->lower();
    _layOut();
    QWidget *first = widget;
    while (first != this && !_isEntrance(first))
        first = first->nextInFocusChain();
    first->setFocus(Qt::TabFocusReason);
}

void ZelWindow::setWindowTitle(const QString &richText)
{
    m_title->_setText(richText);
}

void ZelWindow::setGeometry(int left, int top, int width, int height)
{
    QRect all;
    for (const QScreen *screen : QGuiApplication::screens())
        all |= screen->geometry();
    const QSize size = QSize(width, height).boundedTo(all.size()).expandedTo(_leastSize());
    // A window beyond these bounds is out of sight in any case. They keep the arithmetic from
    // overflowing.
    QRect frame({qBound(all.left() - size.width(), left, all.right() + 1),
                 qBound(all.top() - size.height(), top, all.bottom() + 1)},
                size);
    if (!_isReachable(frame)) {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        frame.moveLeft(qMax(screen.left(), qMin(frame.left(), screen.right() + 1 - size.width())));
        frame.moveTop(qMax(screen.top(), qMin(frame.top(), screen.bottom() + 1 - size.height())));
    }
    QWidget::setGeometry(frame);
}

ZelWindowTitle *ZelWindow::zelWindowTitle() const
{
    return m_title;
}

QSize ZelWindow::_leastSize() const
{
    const QSize title = m_title->minimumSizeHint();
    const QSize content = m_content ? m_content->minimumSizeHint() : QSize(0, 0);
    const int around = 2 * (_border() - OVERLAP);
    return {qMax(title.width() + 2 * _border(), content.width() + around),
            title.height() + content.height() + around};
}

bool ZelWindow::event(QEvent *event)
{
    // The size hint of a child has changed, for example with the font.
    if (event->type() == QEvent::LayoutRequest)
        _layOut();
    if (event->type() == QEvent::HoverMove) {
        const auto *hover = static_cast<QHoverEvent *>(event);
        const Qt::Edges edges = _edgesAt(hover->position().toPoint());
        if (edges)
            setCursor(_cursorFor(edges));
        else
            unsetCursor();
    }
    return QWidget::event(event);
}

void ZelWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange || event->type() == QEvent::ActivationChange)
        _showState();
    QWidget::changeEvent(event);
}

void ZelWindow::resizeEvent(QResizeEvent *)
{
    _layOut();
}

void ZelWindow::paintEvent(QPaintEvent *)
{
    const int border = _border();
    QPainter painter(this);
    const QRect inner = rect().adjusted(border, border, -border, -border);
    painter.setClipRegion(QRegion(rect()) - inner);
    painter.fillRect(rect(), QColor::fromRgba(isActiveWindow() ? BORDER_ACTIVE : BORDER_INACTIVE));
}

void ZelWindow::mousePressEvent(QMouseEvent *event)
{
    m_pressed.reset();
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint position = event->position().toPoint();
    if (const Qt::Edges edges = _edgesAt(position)) {
        windowHandle()->startSystemResize(edges);
    } else if (_isOnTitle(position)) {
        m_pressed = position;
    }
}

void ZelWindow::mouseMoveEvent(QMouseEvent *event)
{
    // A drag does not start with the press itself, because the window system would then swallow the
    // second press of a double click.
    if (!m_pressed)
        return;
    const QPoint way = event->position().toPoint() - *m_pressed;
    if (way.manhattanLength() >= QApplication::startDragDistance()) {
        m_pressed.reset();
        windowHandle()->startSystemMove();
    }
}

void ZelWindow::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !_edgesAt(position) && _isOnTitle(position))
        _slot_Maximise();
}

void ZelWindow::_slot_Maximise()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

Qt::Edges ZelWindow::_edgesAt(const QPoint &position) const
{
    if (isMaximized())
        return {};
    const QRect inner = rect().adjusted(GRIP, GRIP, -GRIP, -GRIP);
    if (inner.contains(position))
        return {};
    const QRect middle = rect().adjusted(CORNER, CORNER, -CORNER, -CORNER);
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, position.x() < middle.left());
    edges.setFlag(Qt::RightEdge, position.x() > middle.right());
    edges.setFlag(Qt::TopEdge, position.y() < middle.top());
    edges.setFlag(Qt::BottomEdge, position.y() > middle.bottom());
    return edges;
}

int ZelWindow::_border() const
{
    return isMaximized() ? 0 : BORDER;
}

bool ZelWindow::_isOnTitle(const QPoint &position) const
{
    return m_title->geometry().contains(position);
}

bool ZelWindow::_isReachable(const QRect &frame) const
{
    const QRect title(frame.topLeft(), QSize(frame.width(), m_title->sizeHint().height()));
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen *screen) {
        const QRect seen = title & screen->availableGeometry();
        return seen.width() >= qMin(REACH, title.width()) && 2 * seen.height() >= title.height();
    });
}

// The window lays out its two children itself, because a QLayout cannot let them overlap.
void ZelWindow::_layOut()
{
    setMinimumSize(_leastSize());
    const int border = _border();
    const QRect inner = rect().adjusted(border, border, -border, -border);
    const int height = m_title->sizeHint().height();
    m_title->setGeometry(inner.x(), inner.y(), inner.width(), height);
    if (m_content)
        m_content->setGeometry(inner.adjusted(-OVERLAP, height - OVERLAP, OVERLAP, OVERLAP));
}

void ZelWindow::_showState()
{
    m_title->_showState(isActiveWindow(), isMaximized());
    _layOut();
    update();
}
