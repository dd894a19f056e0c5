#ifndef ZELSTYLE_H
#define ZELSTYLE_H

#include <QPalette>
#include <QProxyStyle>

// The look of all windows: Qt's Fusion style with a dark palette. All text except disabled text has
// a contrast of at least 4.5 to 1 with its background. The keyboard focus is always visible, even
// after a mouse click. QApplication::setStyle takes ownership of the style; the caller must also
// install standardPalette() as the application's palette.
class ZelStyle : public QProxyStyle
{
    Q_OBJECT
public:
    ZelStyle();

    [[nodiscard]] QPalette standardPalette() const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;
};

#endif
