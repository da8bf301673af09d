#include "support/StubWindow.h"

namespace tvtest {

StubWindow::StubWindow() : previous_(tv::InstallWindow(this)) {}

StubWindow::~StubWindow()
{
    // Only the one installed goes; a window installed over it meanwhile stays.
    if (tv::InstalledWindow() == this)
        tv::InstallWindow(previous_);
}

void StubWindow::SetTitleMsg1(const QString& t)
{
    calls << "Msg1:" + t;
    msg1 << t;
}

void StubWindow::SetTitleCount(const QString& ken, const QString& cap)
{
    calls << "Count:" + ken + "|" + cap;
}

bool StubWindow::InitLst(int f)
{
    calls << QStringLiteral("InitLst:%1").arg(f);
    return initLst(f);
}

void StubWindow::ShowCfgDialog()
{
    calls << "ShowCfgDialog";
    if (onCfgDialog)
        onCfgDialog();
}

void StubWindow::SetStatusText(const QString& t)
{
    calls << "Status:" + t;
    statusText = t;
}

void StubWindow::SetMainEnabled(bool on)
{
    calls << (on ? QStringLiteral("Enable") : QStringLiteral("Disable"));
    if (onSetEnabled)
        onSetEnabled(on);
}

void StubWindow::RefreshItemDetail()
{
    calls << "RefreshItemDetail";
    ++refreshed;
}

} // namespace tvtest
