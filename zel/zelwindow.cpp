#include "zel/zelwindow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{
constexpr int BORDER = 1;
// At least 3 to 1 on the ground of a window: one may lie on another.
constexpr QRgb BORDER_ACTIVE = 0xffc0c0ff;
constexpr QRgb BORDER_INACTIVE = 0xff8a90a6;
// How near to an edge the mouse has to be to resize, and how far along it a corner reaches.
constexpr int GRIP = 5;
constexpr int CORNER = 14;
// Forms bring margins as wide as for a window of their own. Beside a border a part of them does,
// and the room is needed: with large fonts the texts would not fit into a small frame.
constexpr int OVERLAP = 4;

Qt::CursorShape _cursorFor(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

// Whether the keyboard may begin here: of buttons that exclude each other, at the checked one.
bool _isEntrance(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const bool passedOver = button && button->autoExclusive() && !button->isChecked();
    return (widget->focusPolicy() & Qt::TabFocus) && !passedOver;
}
} // namespace

// A button of the title bar. Its sign is drawn and not loaded, so that it is sharp at any scale and
// has the colour of the palette.
class ZelWindowTitle::Button : public QToolButton
{
public:
    enum Sign { Minimise, Maximise, Restore, Close };

    Button(QWidget *parent, Sign sign, const QString &name) : QToolButton(parent)
    {
        setAutoRaise(true);
        setFocusPolicy(Qt::TabFocus);
        // The arrows of the window's edges end where a button begins.
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
    // Made in the order of the keyboard focus.
    auto *minimise = new Button(this, Button::Minimise, tr("Свернуть"));
    m_maximise = new Button(this, Button::Maximise, tr("Развернуть"));
    auto *close = new Button(this, Button::Close, tr("Закрыть"));
    connect(minimise, SIGNAL(clicked()), window, SLOT(showMinimized()));
    connect(m_maximise, SIGNAL(clicked()), window, SLOT(_slot_Maximise()));
    connect(close, SIGNAL(clicked()), window, SLOT(close()));

    setAutoFillBackground(true);
    m_text->setTextFormat(Qt::RichText);
    // A long text is cut rather than making the window wider.
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // The text is no obstacle to dragging.
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
    // A last line that holds nothing needs no room.
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
    // Tells where the mouse is also while it is over a child.
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
    // A child's size hint has changed, with the font for instance.
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
        // Only for the hand on the edge: a stored size may well be smaller.
        windowHandle()->setMinimumSize(_leastSize());
        windowHandle()->startSystemResize(edges);
    } else if (_isOnTitle(position)) {
        m_pressed = position;
    }
}

void ZelWindow::mouseMoveEvent(QMouseEvent *event)
{
    // Not at once when the button is pressed, for the window system would then swallow the second
    // press of a double click.
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

// The window lays out its two children itself: a layout would hold it at least as large as their
// minimum, but a stored geometry is to come back as it was, and it would not let them overlap.
void ZelWindow::_layOut()
{
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
