// The progress dialog of long archive work: owned by the window handed to the archiver, shown
// only when the command line asks for progress.
#include "launch/ArcProgress.h"
#include "launch/ArcProgressDialog_ui.h"
#include "launch/Archive.h"
#include "support/GuardedDirs.h"

#include <QProgressDialog>
#include <QWidget>
#include <QtTest>

using namespace tv;

namespace {

struct Seen {
    QString title;
    QObject* parent = nullptr;
    Qt::WindowModality modality = Qt::NonModal;
};

} // namespace

class tst_arc_progress : public QObject {
    Q_OBJECT

private slots:
    void init() { SetArcProgressFactory(nullptr); }
    void cleanup() { SetArcProgressFactory(nullptr); }

    void dialogIsOwnedByTheWindowAndFollowsTheWork()
    {
        QWidget owner;
        QVERIFY(!MakeArcProgress(&owner, QStringLiteral("LZH解凍")));
        InstallArcProgressDialog();
        std::unique_ptr<ArcProgress> p = MakeArcProgress(&owner, QStringLiteral("LZH解凍"));
        QVERIFY(p);
        auto* dlg = owner.findChild<QProgressDialog*>(QStringLiteral("dlgArcProgress"));
        QVERIFY(dlg);
        QCOMPARE(dlg->parent(), &owner);
        QCOMPARE(dlg->windowTitle(), QStringLiteral("LZH解凍"));
        QCOMPARE(dlg->windowModality(), Qt::WindowModal);
        p->Update(250, 1000, QStringLiteral("GAME.D88"));
        QCOMPARE(dlg->labelText(), QStringLiteral("GAME.D88"));
        QCOMPARE(dlg->value(), 250);
        p.reset();
        QVERIFY(!owner.findChild<QProgressDialog*>(QStringLiteral("dlgArcProgress")));
    }

    void packWithProgressShowsTheDialogWithoutItShowsNone()
    {
        tvtest::GuardedDirs dirs;
        QVERIFY(dirs.isValid());
        const QString src = dirs.path(QStringLiteral("src"));
        QVERIFY(tvtest::WriteFile(src + QStringLiteral("/GAME.D88"), QByteArray(4096, 'x')));
        InstallArcProgressDialog();
        ArcProgressFactory real = SetArcProgressFactory(nullptr);
        std::vector<Seen> seen;
        SetArcProgressFactory([&](QObject* owner, const QString& title) {
            auto p = real(owner, title);
            auto* dlg = owner->findChild<QProgressDialog*>(QStringLiteral("dlgArcProgress"));
            seen.push_back({dlg ? dlg->windowTitle() : QString(), dlg ? dlg->parent() : nullptr,
                            dlg ? dlg->windowModality() : Qt::NonModal});
            return p;
        });
        QWidget owner;
        QCOMPARE(ArcPack(&owner, dirs.path(QStringLiteral("T.zip")), src, kArcTrue), 0);
        QCOMPARE(ArcPack(&owner, dirs.path(QStringLiteral("T.cab")), src, kArcTrue), 0);
        QCOMPARE(ArcPack(&owner, dirs.path(QStringLiteral("T.lzh")), src, kArcTrue), 0);
        QCOMPARE(seen.size(), size_t(3));
        const QStringList titles = {QStringLiteral("ZIP圧縮"), QStringLiteral("CAB圧縮"),
                                    QStringLiteral("LZH圧縮")};
        for (size_t i = 0; i < seen.size(); ++i) {
            QCOMPARE(seen[i].title, titles[int(i)]);
            QCOMPARE(seen[i].parent, &owner);
            QCOMPARE(seen[i].modality, Qt::WindowModal);
        }
        // Without progress: "-n" for LZH, "-i" for CAB.
        QCOMPARE(LzhPack(&owner, dirs.path(QStringLiteral("T.lzh")), src, kArcFalse), 0);
        QCOMPARE(CabPack(&owner, dirs.path(QStringLiteral("T.cab")), src, kArcFalse), 0);
        QCOMPARE(seen.size(), size_t(3));
        QCOMPARE(ArcMelt(&owner, dirs.path(QStringLiteral("T.zip")), dirs.app(), QString(),
                         kArcTrue, kArcTrue),
                 0);
        QCOMPARE(seen.size(), size_t(4));
        QCOMPARE(seen.back().title, QStringLiteral("ZIP解凍"));
    }
};

QTEST_MAIN(tst_arc_progress)
#include "tst_arc_progress.moc"
