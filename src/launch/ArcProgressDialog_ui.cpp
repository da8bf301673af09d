#include "launch/ArcProgressDialog_ui.h"

#include "launch/ArcProgress.h"

#include <QCoreApplication>
#include <QProgressDialog>
#include <QWidget>

namespace tv {

namespace {
class DialogProgress : public ArcProgress {
public:
    DialogProgress(QWidget* owner, const QString& title) : dlg_(owner)
    {
        dlg_.setObjectName(QStringLiteral("dlgArcProgress"));
        dlg_.setWindowTitle(title);
        dlg_.setWindowModality(Qt::WindowModal);
        dlg_.setCancelButton(nullptr); // the libraries' windows could not be cancelled
        dlg_.setMinimumDuration(500);  // only long work shows the window
        dlg_.setMinimumWidth(360);
        dlg_.setRange(0, 1000);
        dlg_.setValue(0);
    }
    void Update(qint64 done, qint64 total, const QString& name) override
    {
        dlg_.setLabelText(name);
        const int v = total > 0 ? static_cast<int>(qMin<qint64>(1000, done * 1000 / total)) : 0;
        dlg_.setValue(v);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }

private:
    QProgressDialog dlg_;
};
} // namespace

void InstallArcProgressDialog()
{
    SetArcProgressFactory([](QObject* owner, const QString& title) -> std::unique_ptr<ArcProgress> {
        return std::make_unique<DialogProgress>(qobject_cast<QWidget*>(owner), title);
    });
}

} // namespace tv
