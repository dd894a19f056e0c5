#include "zel/zelstyle.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace
{
// The accent is also the colour of the small text in the forms.
constexpr QRgb ACCENT = 0xffc0c0ff;
constexpr QRgb OUTLINE = 0xff8a90a6;
constexpr QRgb FIELD = 0xff6a7086;

struct COLOUR_T {
    QPalette::ColorRole role;
    QRgb colour;
};

constexpr COLOUR_T COLOURS[] = {
    {QPalette::Window, 0xff23252e},
    {QPalette::WindowText, 0xffeceef4},
    {QPalette::Base, 0xff191b22},
    {QPalette::AlternateBase, 0xff1f222a},
    {QPalette::Text, 0xffeceef4},
    {QPalette::Button, 0xff363a48},
    {QPalette::ButtonText, 0xfff2f3f8},
    {QPalette::BrightText, 0xffffb0b0},
    {QPalette::Light, 0xff4b5063},
    {QPalette::Midlight, 0xff3f4456},
    {QPalette::Mid, 0xff1d1f27},
    {QPalette::Dark, 0xff15161b},
    {QPalette::Shadow, 0xff0b0c0f},
    {QPalette::Highlight, 0xff3450ad},
    {QPalette::HighlightedText, 0xffffffff},
    {QPalette::Link, 0xff9fb8ff},
    {QPalette::LinkVisited, 0xffd2b0ff},
    {QPalette::ToolTipBase, 0xff34384a},
    {QPalette::ToolTipText, 0xfff2f3f8},
    {QPalette::PlaceholderText, 0xffa8adbd},
};

constexpr COLOUR_T DISABLED[] = {
    {QPalette::WindowText, 0xff858a9a},      {QPalette::Text, 0xff858a9a},
    {QPalette::ButtonText, 0xff858a9a},      {QPalette::Highlight, 0xff4b5063},
    {QPalette::HighlightedText, 0xffc8cbd6},
};

void _drawOutline(const QStyleOption *option, QPainter *painter, QRgb colour, qreal width)
{
    const qreal inset = width / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QColor::fromRgba(colour), width));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(inset, inset, -inset, -inset), 2, 2);
    painter->restore();
}

void _drawFocus(const QStyleOption *option, QPainter *painter)
{
    _drawOutline(option, painter, ACCENT, 1.5);
}

// Fusion outlines the button in a shade of the window, which is invisible on a dark background.
void _drawRadioButton(const QStyleOption *option, QPainter *painter)
{
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool hovered = enabled && (option->state & QStyle::State_MouseOver);
    const QRectF circle = QRectF(option->rect).adjusted(0.75, 0.75, -0.75, -0.75);
    const QPalette &palette = option->palette;

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QColor::fromRgba(hovered ? ACCENT : OUTLINE), 1.2));
    painter->setBrush(option->state & QStyle::State_Sunken ? palette.midlight() : palette.base());
    painter->drawEllipse(circle);
    if (option->state & QStyle::State_On) {
        const qreal inset = circle.width() * 0.26;
        painter->setPen(Qt::NoPen);
        painter->setBrush(enabled ? QColor::fromRgba(ACCENT) : palette.color(QPalette::Text));
        painter->drawEllipse(circle.adjusted(inset, inset, -inset, -inset));
    }
    painter->restore();
}
} // namespace

ZelStyle::ZelStyle() : QProxyStyle(u"Fusion"_s) {}

QPalette ZelStyle::standardPalette() const
{
    QPalette palette;
    for (const COLOUR_T &entry : COLOURS)
        palette.setColor(entry.role, QColor::fromRgba(entry.colour));
    for (const COLOUR_T &entry : DISABLED)
        palette.setColor(QPalette::Disabled, entry.role, QColor::fromRgba(entry.colour));
    return palette;
}

void ZelStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                             QPainter *painter, const QWidget *widget) const
{
    if (element == PE_FrameFocusRect)
        _drawFocus(option, painter);
    else if (element == PE_IndicatorRadioButton)
        _drawRadioButton(option, painter);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    // Fusion outlines a field with a dark line even if it has the focus. On a dark background that
    // line is invisible.
    if (element == PE_FrameLineEdit && (option->state & State_HasFocus))
        _drawFocus(option, painter);
    else if (element == PE_FrameLineEdit)
        _drawOutline(option, painter, FIELD, 1);
}

// Draws the focus frame of the controls that Fusion draws without one.
void ZelStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    const bool framed = element == CE_PushButton || element == CE_ShapedFrame;
    if (framed && (option->state & State_HasFocus))
        _drawFocus(option, painter);
}

void ZelStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                  QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && (option->state & State_HasFocus))
        _drawFocus(option, painter);
}

int ZelStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const
{
    // The icons are made for light backgrounds.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}
