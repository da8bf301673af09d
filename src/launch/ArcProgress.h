#pragma once
// Progress of a long archive operation. The core knows only this interface; the main window
// installs a factory that shows a progress dialog owned by the given window.
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace tv {

class ArcProgress {
public:
    virtual ~ArcProgress() = default;
    // `name` is the member or file being worked on.
    virtual void Update(qint64 done, qint64 total, const QString& name) = 0;
};

using ArcProgressFactory =
    std::function<std::unique_ptr<ArcProgress>(QObject* owner, const QString& title)>;

// Returns the previous factory. Without one, no progress is shown.
ArcProgressFactory SetArcProgressFactory(ArcProgressFactory factory);
// A progress for one operation, or null when none is installed.
std::unique_ptr<ArcProgress> MakeArcProgress(QObject* owner, const QString& title);

} // namespace tv
