#include "launch/ArcProgress.h"

namespace tv {

namespace {
ArcProgressFactory& factory()
{
    static ArcProgressFactory f;
    return f;
}
} // namespace

ArcProgressFactory SetArcProgressFactory(ArcProgressFactory f)
{
    ArcProgressFactory old = std::move(factory());
    factory() = std::move(f);
    return old;
}

std::unique_ptr<ArcProgress> MakeArcProgress(QObject* owner, const QString& title)
{
    if (!factory())
        return nullptr;
    return factory()(owner, title);
}

} // namespace tv
