#include "driver/session.h"

#include "settings/inifile.h"
#include "ui/globals.h"
#include "zel/zelwindow.h"

#include <QCoreApplication>

#include <string>

namespace
{
std::string _section()
{
    return (QCoreApplication::applicationName() + "session").toLocal8Bit().toStdString();
}
} // namespace

QString versionLine()
{
    return QString::fromLatin1(gSettings->GetString("common", "options_version", "").c_str());
}

void restoreSession(ZelWindow *window)
{
    const std::string section = _section();
    const int height = gSettings->GetInt(section, "winHeight", 220);
    const int width = gSettings->GetInt(section, "winWidth", 480);
    const int top = gSettings->GetInt(section, "winTop", 100);
    const int left = gSettings->GetInt(section, "winLeft", 100);
    // Set for a maximised window, too: it is what the window is restored to.
    window->setGeometry(left, top, width, height);
    if (gSettings->GetString(section, "fullscreen", "false") == "true")
        window->showMaximized();
    else
        window->setVisible(true);
}

void storeSession(const ZelWindow &window)
{
    const std::string section = _section();
    const bool maximised = window.isMaximized();
    gSettings->WriteString(section, "fullscreen", maximised ? "true" : "false");
    if (maximised)
        return;
    const QRect geometry = window.geometry();
    gSettings->WriteInt(section, "winLeft", geometry.left());
    gSettings->WriteInt(section, "winTop", geometry.top());
    gSettings->WriteInt(section, "winWidth", geometry.width());
    gSettings->WriteInt(section, "winHeight", geometry.height());
}
