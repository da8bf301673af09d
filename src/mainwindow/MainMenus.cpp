#include "mainwindow/MainMenus.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace tv {

QString SortEntryName(const QString& prefix, int key)
{
    return prefix + QStringLiteral("Sort") +
           QString::fromLatin1(kSortFamilies[size_t(key / 2)].name) +
           QStringLiteral("Run(%1)").arg(key);
}

namespace {

QAction* add(QMenu* m, const QString& name, const QString& caption, bool enabled,
             bool checkable = false)
{
    QAction* a = m->addAction(caption);
    a->setObjectName(name);
    a->setEnabled(enabled);
    a->setCheckable(checkable);
    return a;
}

QMenu* sub(QMenu* parent, const QString& name, const QString& caption)
{
    QMenu* m = parent->addMenu(caption);
    m->setObjectName(name);
    return m;
}

QMenu* top(QMainWindow* window, const QString& name, const QString& caption)
{
    QMenu* m = window->menuBar()->addMenu(caption);
    m->setObjectName(name);
    return m;
}

} // namespace

MainMenus BuildMainMenus(QMainWindow* window)
{
    MainMenus m;
    m.mnuFile = top(window, QStringLiteral("mnuFile"), QStringLiteral("ファイル(&F)"));
    m.mnuFileEnd = add(m.mnuFile, QStringLiteral("mnuFileEnd"), QStringLiteral("終了(&X)"), true);

    m.mnuEdit = top(window, QStringLiteral("mnuEdit"), QStringLiteral("編集(&E)"));
    m.mnuEditAddItem = add(m.mnuEdit, QStringLiteral("mnuEditAddItem"),
                           QStringLiteral("アイテム追加(&A)..."), false);
    m.mnuEditChangeItem = add(m.mnuEdit, QStringLiteral("mnuEditChangeItem"),
                              QStringLiteral("アイテム編集(&C)..."), false);
    m.mnuEditDeleteItem = add(m.mnuEdit, QStringLiteral("mnuEditDeleteItem"),
                              QStringLiteral("アイテム削除(&D)"), false);
    m.mnuEdit->addSeparator();
    m.mnuEditNoSelect =
        add(m.mnuEdit, QStringLiteral("mnuEditNoSelect"), QStringLiteral("選択解除(&N)"), false);
    m.mnuEditSearch =
        add(m.mnuEdit, QStringLiteral("mnuEditSearch"), QStringLiteral("検索(&S)..."), false);

    m.mnuView = top(window, QStringLiteral("mnuView"), QStringLiteral("表示(&V)"));
    m.mnuViewSort = sub(m.mnuView, QStringLiteral("mnuViewSort"), QStringLiteral("並べ替え(&S)"));
    for (size_t k = 0; k < kSortFamilies.size(); ++k) {
        QMenu* family =
            sub(m.mnuViewSort,
                QStringLiteral("mnuViewSort") + QString::fromLatin1(kSortFamilies[k].name),
                QString::fromUtf8(kSortFamilies[k].caption));
        m.mnuViewSortFamily[k] = family;
        const int key = int(2 * k);
        m.mnuViewSortRun[size_t(key)] = add(family, SortEntryName(QStringLiteral("mnuView"), key),
                                            QStringLiteral("昇順(&A)"), false, true);
        m.mnuViewSortRun[size_t(key + 1)] =
            add(family, SortEntryName(QStringLiteral("mnuView"), key + 1),
                QStringLiteral("降順(&D)"), false, true);
    }
    m.mnuView->addSeparator();
    m.mnuViewScrCom = add(m.mnuView, QStringLiteral("mnuViewScrCom"),
                          QStringLiteral("ScreenShot・コメント表示(&C)"), false, true);
    m.mnuViewGrid = add(m.mnuView, QStringLiteral("mnuViewGrid"),
                        QStringLiteral("グリッド線表示(&G)"), false, true);
    m.munViewColumnClear = add(m.mnuView, QStringLiteral("munViewColumnClear"),
                               QStringLiteral("カラム幅初期化(&W)"), false);

    m.mnuEmuRun = top(window, QStringLiteral("mnuEmuRun"), QStringLiteral("起動(&R)"));
    // Nine entries in every family; those without an emulator show "-----".
    for (int i = 1; i <= 9; ++i)
        m.mnuEmuRunEach[size_t(i - 1)] =
            add(m.mnuEmuRun, QStringLiteral("mnuEmuRunEach(%1)").arg(i), QStringLiteral("-----"),
                false);
    m.mnuEmuRun->addSeparator();
    m.mnuEmuRunMan =
        add(m.mnuEmuRun, QStringLiteral("mnuEmuRunMan"), QStringLiteral("マニュアル(&N)"), false);

    m.mnuTool = top(window, QStringLiteral("mnuTool"), QStringLiteral("ツール(&T)"));
    m.mnuToolColEditor = add(m.mnuTool, QStringLiteral("mnuToolColEditor"),
                             QStringLiteral("カラムエディタ(&E)..."), false);

    m.munOption = top(window, QStringLiteral("munOption"), QStringLiteral("オプション(&O)"));
    m.mnuOptionCfg = add(m.munOption, QStringLiteral("mnuOptionCfg"),
                         QStringLiteral("Emulator基本設定(&E)..."), true);
    m.mnuOptionTORVOp = add(m.munOption, QStringLiteral("mnuOptionTORVOp"),
                            QStringLiteral("TORVANE ｵﾌﾟｼｮﾝ(&O)..."), true);
    m.mnuOptionRunner = add(m.munOption, QStringLiteral("mnuOptionRunner"),
                            QStringLiteral("ランナー設定(&R)..."), true);
    for (QMenu* menu : {m.mnuEdit, m.mnuTool, m.munOption})
        menu->setToolTipsVisible(true);

    m.mnuHelp = top(window, QStringLiteral("mnuHelp"), QStringLiteral("ヘルプ(&H)"));
    m.mnuHelpTORVANE = add(m.mnuHelp, QStringLiteral("mnuHelpTORVANE"),
                           QStringLiteral("TORVANE ヘルプ(&H)"), true);
    m.mnuHelpTopic =
        add(m.mnuHelp, QStringLiteral("mnuHelpTopic"), QStringLiteral("トピックの検索(&S)"), true);
    m.mnuHelp->addSeparator();
    m.mnuHelpVersion = add(m.mnuHelp, QStringLiteral("mnuHelpVersion"),
                           QStringLiteral("バージョン情報(&A)..."), true);

    m.mnuTaskBar = new QMenu(window);
    m.mnuTaskBar->setObjectName(QStringLiteral("mnuTaskBar"));
    m.mnuTaskBarTORVOpen = add(m.mnuTaskBar, QStringLiteral("mnuTaskBarTORVOpen"),
                               QStringLiteral("TORVANE を開く(&O)"), true);
    m.mnuTaskBarTORVClose = add(m.mnuTaskBar, QStringLiteral("mnuTaskBarTORVClose"),
                                QStringLiteral("TORVANE を終了(&X)"), true);
    return m;
}

} // namespace tv
