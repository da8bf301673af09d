// The main window's menus as one function builds them: every entry in order with its control
// name, caption and state, the typed members pointing at those entries, and the same menus on
// a bare window as on frmMain.
#include "mainwindow/MainMenus.h"
#include "mainwindow/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace tv;

namespace {

// "name|caption|e(nabled)/d(isabled)|c(heckable)" for every entry below `m`, depth first;
// a submenu is listed by its menu's name before its entries, a separator as "-".
void walk(const QMenu* m, QStringList& out, const QString& indent)
{
    for (QAction* a : m->actions()) {
        if (a->isSeparator()) {
            out << indent + "-";
            continue;
        }
        const QString name = a->menu() ? a->menu()->objectName() : a->objectName();
        out << indent + name + "|" + a->text() + "|" + (a->isEnabled() ? "e" : "d") +
                   (a->isCheckable() ? "c" : "");
        if (a->menu())
            walk(a->menu(), out, indent + "  ");
    }
}

QStringList layout(QMainWindow* w, const MainMenus& m)
{
    QStringList out;
    for (QAction* a : w->menuBar()->actions()) {
        out << a->menu()->objectName() + "|" + a->text();
        walk(a->menu(), out, "  ");
    }
    out << m.mnuTaskBar->objectName();
    walk(m.mnuTaskBar, out, "  ");
    return out;
}

const QStringList kExpected = {
    "mnuFile|ファイル(&F)",
    "  mnuFileEnd|終了(&X)|e",
    "mnuEdit|編集(&E)",
    "  mnuEditAddItem|アイテム追加(&A)...|d",
    "  mnuEditChangeItem|アイテム編集(&C)...|d",
    "  mnuEditDeleteItem|アイテム削除(&D)|d",
    "  -",
    "  mnuEditNoSelect|選択解除(&N)|d",
    "  mnuEditSearch|検索(&S)...|d",
    "mnuView|表示(&V)",
    "  mnuViewSort|並べ替え(&S)|e",
    "    mnuViewSortRegist|登録順(&R)|e",
    "      mnuViewSortRegistRun(0)|昇順(&A)|dc",
    "      mnuViewSortRegistRun(1)|降順(&D)|dc",
    "    mnuViewSortTitle|Title(&T)|e",
    "      mnuViewSortTitleRun(2)|昇順(&A)|dc",
    "      mnuViewSortTitleRun(3)|降順(&D)|dc",
    "    mnuViewSortGenre|Genre(&G)|e",
    "      mnuViewSortGenreRun(4)|昇順(&A)|dc",
    "      mnuViewSortGenreRun(5)|降順(&D)|dc",
    "    mnuViewSortMaker|Maker(&M)|e",
    "      mnuViewSortMakerRun(6)|昇順(&A)|dc",
    "      mnuViewSortMakerRun(7)|降順(&D)|dc",
    "    mnuViewSortCol1|Column 1(&1)|e",
    "      mnuViewSortCol1Run(8)|昇順(&A)|dc",
    "      mnuViewSortCol1Run(9)|降順(&D)|dc",
    "    mnuViewSortCol2|Column 2(&2)|e",
    "      mnuViewSortCol2Run(10)|昇順(&A)|dc",
    "      mnuViewSortCol2Run(11)|降順(&D)|dc",
    "    mnuViewSortSale|Sale Date(&S)|e",
    "      mnuViewSortSaleRun(12)|昇順(&A)|dc",
    "      mnuViewSortSaleRun(13)|降順(&D)|dc",
    "  -",
    "  mnuViewScrCom|ScreenShot・コメント表示(&C)|dc",
    "  mnuViewGrid|グリッド線表示(&G)|dc",
    "  munViewColumnClear|カラム幅初期化(&W)|d",
    "mnuEmuRun|起動(&R)",
    "  mnuEmuRunEach(1)|-----|d",
    "  mnuEmuRunEach(2)|-----|d",
    "  mnuEmuRunEach(3)|-----|d",
    "  mnuEmuRunEach(4)|-----|d",
    "  mnuEmuRunEach(5)|-----|d",
    "  mnuEmuRunEach(6)|-----|d",
    "  mnuEmuRunEach(7)|-----|d",
    "  mnuEmuRunEach(8)|-----|d",
    "  mnuEmuRunEach(9)|-----|d",
    "  -",
    "  mnuEmuRunMan|マニュアル(&N)|d",
    "mnuTool|ツール(&T)",
    "  mnuToolColEditor|カラムエディタ(&E)...|d",
    "munOption|オプション(&O)",
    "  mnuOptionCfg|Emulator基本設定(&E)...|e",
    "  mnuOptionTORVOp|TORVANE ｵﾌﾟｼｮﾝ(&O)...|e",
    "  mnuOptionRunner|ランナー設定(&R)...|e",
    "mnuHelp|ヘルプ(&H)",
    "  mnuHelpTORVANE|TORVANE ヘルプ(&H)|e",
    "  mnuHelpTopic|トピックの検索(&S)|e",
    "  -",
    "  mnuHelpVersion|バージョン情報(&A)...|e",
    "mnuTaskBar",
    "  mnuTaskBarTORVOpen|TORVANE を開く(&O)|e",
    "  mnuTaskBarTORVClose|TORVANE を終了(&X)|e",
};

} // namespace

class TstMainMenus : public QObject {
    Q_OBJECT
private slots:
    void bareWindowGetsTheWholeMenuTree()
    {
        QMainWindow w;
        const MainMenus m = BuildMainMenus(&w);
        QCOMPARE(layout(&w, m), kExpected);
    }

    void mainWindowBuildsTheSameMenus()
    {
        frmMain w;
        // The main window enables the side-list editor, which needs no catalogue.
        QStringList expected = kExpected;
        const qsizetype i =
            expected.indexOf(QStringLiteral("  mnuToolColEditor|カラムエディタ(&E)...|d"));
        QVERIFY(i >= 0);
        expected[i] = QStringLiteral("  mnuToolColEditor|カラムエディタ(&E)...|e");
        QCOMPARE(layout(&w, w.menus), expected);
    }

    void runnerEntryOpensTheRunnerDialog()
    {
        frmMain w;
        QString opened;
        QTimer::singleShot(0, [&] {
            QWidget* d = QApplication::activeModalWidget();
            opened = d ? d->objectName() + QLatin1Char('|') + d->windowTitle() : QString();
            if (auto* dlg = qobject_cast<QDialog*>(d))
                dlg->reject();
        });
        w.menus.mnuOptionRunner->trigger();
        QCOMPARE(opened, QStringLiteral("frmRunner|ランナー設定"));
    }

    void typedMembersAreTheNamedEntries()
    {
        QMainWindow w;
        const MainMenus m = BuildMainMenus(&w);
        for (int key = 0; key <= 13; ++key)
            QCOMPARE(m.mnuViewSortRun[size_t(key)],
                     w.findChild<QAction*>(SortEntryName(QStringLiteral("mnuView"), key)));
        QCOMPARE(m.mnuViewSortRun[9]->objectName(), QStringLiteral("mnuViewSortCol1Run(9)"));
        for (int i = 1; i <= 9; ++i)
            QCOMPARE(m.runEntry(i)->objectName(), QStringLiteral("mnuEmuRunEach(%1)").arg(i));
        QCOMPARE(m.mnuViewSortFamily[4]->objectName(), QStringLiteral("mnuViewSortCol1"));
        QCOMPARE(m.mnuViewGrid->objectName(), QStringLiteral("mnuViewGrid"));
        QCOMPARE(m.munViewColumnClear->objectName(), QStringLiteral("munViewColumnClear"));
        QCOMPARE(m.mnuTaskBarTORVClose->objectName(), QStringLiteral("mnuTaskBarTORVClose"));
    }
};

QTEST_MAIN(TstMainMenus)
#include "tst_main_menus.moc"
