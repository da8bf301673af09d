// Files dropped on the real title list: the drag of file URLs is taken, frmDDAdd counts the
// files with the main window disabled under it, the final message and the new last row; the
// stop button answered yes brings the catalogue and the list back; what isn't a file list is
// refused.
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/MainMenus.h"
#include "mainwindow/frmMain.h"
#include "registration/frmDDAdd.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QUrl>
#include <optional>

using namespace tv;

class TstDropRegistration : public QObject {
    Q_OBJECT
    std::optional<tvtest::GuardedDirs> dirs;
    std::optional<tvtest::StubWindow> window;
    QMainWindow* win = nullptr;
    MainMenus menus;
    CatalogueWidgets w;
    CatalogueUi* ui = nullptr;

    QString drop(const QString& name)
    {
        const QString p = dirs->path("drop/") + name;
        tvtest::WriteFile(p, QByteArray(100, 'd'));
        return p;
    }
    // Drags `data` over the list and drops it there, as the desktop does.
    bool dragAndDrop(QMimeData* data)
    {
        QWidget* vp = w.lstD88->viewport();
        const QPointF at(20, 20);
        QDragEnterEvent enter(at.toPoint(), Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(vp, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped(at, enter.dropAction(), data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(vp, &dropped);
        return dropped.isAccepted();
    }
    static QMimeData* urls(const QStringList& files)
    {
        auto* m = new QMimeData;
        QList<QUrl> list;
        for (const QString& f : files)
            list << QUrl::fromLocalFile(f);
        m->setUrls(list);
        return m;
    }
    static frmDDAdd* progressWindow()
    {
        for (QWidget* t : QApplication::topLevelWidgets())
            if (auto* d = qobject_cast<frmDDAdd*>(t); d && d->isVisible())
                return d;
        return nullptr;
    }

private slots:
    void init()
    {
        dirs.emplace();
        QVERIFY(dirs->isValid());
        InitTables();
        SetDefaultCfg(Cfg);
        Cfg.SortKey = 0;
        HardWare = 0;
        KeyPrefix = "K";
        TitleClosed = 1;
        WorkDir = AppDir + "/TORVBOOT";
        ImageDir[0] = dirs->path("img");
        SnapDir[0] = dirs->path("snap");
        QVERIFY(WriteNewCatalogue(0));
        NoImagePicture = QImage(8, 8, QImage::Format_RGB32);
        window.emplace();
        win = new QMainWindow;
        w = CatalogueUi::BuildStandalone(win, &menus);
        ui = new CatalogueUi(w, win);
        win->resize(800, 400);
        win->show();
        QVERIFY(QTest::qWaitForWindowExposed(win));
        ui->LoadList();
    }
    void cleanup()
    {
        delete win;
        win = nullptr;
        window.reset();
        dirs.reset();
    }

    void threeImagesAndAnUnknownFileDroppedOnTheList()
    {
        tvtest::ScriptedMsgBox boxes;
        const QStringList files{drop("ONE.D88"), drop("TWO.D88"), drop("README.XYZ"),
                                drop("THREE.T88")};
        QStringList seen;
        bool mainDisabled = false, progressUsable = false;
        QTimer watch;
        watch.setInterval(0);
        connect(&watch, &QTimer::timeout, this, [&] {
            frmDDAdd* d = progressWindow();
            if (!d)
                return;
            mainDisabled = mainDisabled || !win->isEnabled();
            progressUsable = progressUsable || d->cmdCancel->isEnabled();
            const QString line = d->windowTitle() + "|" + d->lblFileCnt->text() + " " +
                                 d->lblMaxCnt->text() + "|" + d->lblFileName->text();
            if (seen.isEmpty() || seen.last() != line)
                seen << line;
        });
        watch.start();
        std::unique_ptr<QMimeData> data(urls(files));
        QVERIFY(dragAndDrop(data.get()));
        QTRY_COMPARE(boxes.calls().size(), size_t(1));
        watch.stop();
        QCOMPARE(
            boxes.calls()[0].text,
            QStringLiteral(
                "正常に登録したファイル数: 3\n登録不可能な件数: 1\nD&D登録が終了しました！！"));
        QCOMPARE(boxes.calls()[0].flags, 64);
        QVERIFY(mainDisabled);
        QVERIFY(progressUsable);
        QVERIFY(seen.contains("Ｄ＆Ｄリスト登録|1 / 4 件目を登録中．．．|" + files[0]));
        QVERIFY(seen.contains("Ｄ＆Ｄリスト登録|4 / 4 件目を登録中．．．|" + files[3]));
        QTRY_VERIFY(win->isEnabled());
        QVERIFY(!progressWindow());
        QCOMPARE(ui->model()->rowCount(), 3);
        QCOMPARE(ui->model()->index(2, 0).data().toString(), QStringLiteral("THREE"));
        QCOMPARE(ui->model()->index(0, 0).data().toString(), QStringLiteral("ONE"));
        QCOMPARE(ui->selectedRow(), 2); // the last row
        QCOMPARE(win->windowTitle(), ListWindowCaption(3));
        QVERIFY(!QFile::exists(AppDir + "/TORVANE.LSB"));
    }

    void theStopButtonAnsweredYesRollsBack()
    {
        tvtest::ScriptedMsgBox boxes;
        const QByteArray before = tvtest::ReadFile(AppDir + "/TORVANE.LST");
        const QStringList files{drop("A.D88"), drop("B.D88"), drop("C.D88"), drop("D.D88")};
        bool clicked = false;
        QTimer watch;
        watch.setInterval(0);
        connect(&watch, &QTimer::timeout, this, [&] {
            frmDDAdd* d = progressWindow();
            if (d && !clicked && d->lblFileCnt->text() == "2") {
                clicked = true;
                QTest::mouseClick(d->cmdCancel, Qt::LeftButton);
            }
        });
        watch.start();
        boxes.answer(MbResYes);
        std::unique_ptr<QMimeData> data(urls(files));
        QVERIFY(dragAndDrop(data.get()));
        QTRY_COMPARE(boxes.calls().size(), size_t(2));
        watch.stop();
        QVERIFY(clicked);
        QCOMPARE(boxes.texts(), QStringList({"中断しますか？", "D&D登録は中止されました"}));
        QCOMPARE(boxes.calls()[1].flags, 64);
        QTRY_VERIFY(win->isEnabled());
        QCOMPARE(ui->model()->rowCount(), 0);
        QCOMPARE(tvtest::ReadFile(AppDir + "/TORVANE.LST"), before);
        QVERIFY(!QFile::exists(AppDir + "/TORVANE.LSB"));
    }

    // The same through the program's own main window after its start-up.
    void dropOnTheMainWindowAfterItsStart()
    {
        CfgRecord c;
        SetDefaultCfg(c);
        c.LastHardWare = 0;
        QVERIFY(tvtest::WriteFile(AppDir + "/TORVANE.CFG", EncodeCfg(c)));
        qputenv("TMP", dirs->tmp().toLocal8Bit());
        qputenv("TEMP", dirs->temp().toLocal8Bit());
        StartupEnv e;
        e.programDir = AppDir;
        e.executablePath = AppDir + "/torvane";
        e.sleep = [](int) {};
        tvtest::ScriptedMsgBox boxes;
        frmMain m;
        m.SetCatalogue(std::make_unique<MainCatalogue>());
        QVERIFY(m.Load(e));
        QVERIFY(QTest::qWaitForWindowExposed(&m));
        const QStringList files{drop("STAR.D88"), drop("MOON.D88")};
        std::unique_ptr<QMimeData> data(urls(files));
        QWidget* vp = m.lstD88->viewport();
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, data.get(), Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(vp, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent dropped(QPointF(20, 20), Qt::CopyAction, data.get(), Qt::LeftButton,
                           Qt::NoModifier);
        QApplication::sendEvent(vp, &dropped);
        QVERIFY(dropped.isAccepted());
        QTRY_COMPARE(boxes.calls().size(), size_t(1));
        QCOMPARE(
            boxes.calls()[0].text,
            QStringLiteral(
                "正常に登録したファイル数: 2\n登録不可能な件数: 0\nD&D登録が終了しました！！"));
        QTRY_VERIFY(m.isEnabled());
        QCOMPARE(m.lstD88->model()->rowCount(), 2);
        QCOMPARE(m.windowTitle(), ListWindowCaption(2));
        QVERIFY(m.SelectedKey() == QStringLiteral("K") + QString::number(25 + 2284));
        QVERIFY(m.txtSyosai->toPlainText().contains(QStringLiteral("MOON")));
        m.close();
    }

    void aHeldMainWindowDoesNotClose()
    {
        frmMain m;
        m.show();
        m.setEnabled(false); // as during a drop
        QVERIFY(!m.close());
        QVERIFY(m.isVisible());
        m.setEnabled(true);
        QVERIFY(m.close());
    }

    void aDragWithoutFilesIsRefused()
    {
        QMimeData text;
        text.setText("just words");
        QVERIFY(!dragAndDrop(&text));
        QMimeData remote;
        remote.setUrls({QUrl("https://example.invalid/GAME.D88")});
        QVERIFY(!dragAndDrop(&remote));
        QCOMPARE(ui->model()->rowCount(), 0);
    }
};

QTEST_MAIN(TstDropRegistration)
#include "tst_dropregistration.moc"
