// The XM7 for Win32 option dialog: pages, load, store of every element with the fallbacks,
// the enabling rules, cmdDefault, the joystick code lists, the key map list with its three
// ready maps and frmXm7WinOp2, Cancel after Apply, and the opening through the dialog table.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/xm7win/frmXm7WinOp.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <functional>

using namespace tv;

namespace {

EmuOptFM Defaults()
{
    EmuOptFM o;
    SetDefaultEmuOptFM(o);
    return o;
}

// The defaults with EM7's members marked, which the dialog must pass through.
EmuOptFM Marked()
{
    EmuOptFM o = Defaults();
    o.DefEmuRun = 3;
    o.Em7Win_1Op = {1, 1, 1, 9, 9, 9, 9, 9, 9};
    o.Em7Win_2Op = {321, 5, 6};
    o.Xm7Win_1Op[55] = 42; // beyond the dialog's elements
    o.Xm7Win_2Op[7] = 99;
    return o;
}

// Runs `act` on frmXm7WinOp2 once it is shown modally.
void OnChooser(std::function<void(QDialog*)> act)
{
    QTimer::singleShot(0, [act] {
        auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(d);
        QCOMPARE(d->objectName(), QStringLiteral("frmXm7WinOp2"));
        act(d);
    });
}

void Choose(QDialog* d, int code)
{
    auto* cbx = d->findChild<QComboBox*>(QStringLiteral("cbxDIKMap"));
    cbx->setCurrentIndex(cbx->findData(code));
    QTest::mouseClick(d->findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);
}

} // namespace

class TestFrmXm7WinOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmXm7WinOp& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }
    QCheckBox* chk(frmXm7WinOp& d, int i) { return c<QCheckBox>(d, "chkXm7Win_1Op", i); }
    QComboBox* cbx(frmXm7WinOp& d, int i) { return c<QComboBox>(d, "cbxXm7Win_1Op", i); }
    QLineEdit* txt(frmXm7WinOp& d, int i) { return c<QLineEdit>(d, "txtXm7Win_2Op", i); }
    // The row of key `keyNo` by its text.
    static QTreeWidgetItem* Row(frmXm7WinOp& d, const QString& text)
    {
        const auto found = d.keyList()->findItems(text, Qt::MatchExactly, 0);
        return found.isEmpty() ? nullptr : found[0];
    }
    static QStringList Texts(const QTreeWidgetItem* item)
    {
        QStringList out;
        for (int i = 0; i < 5; ++i)
            out << item->text(i);
        return out;
    }
    static void Select(frmXm7WinOp& d, QTreeWidgetItem* item)
    {
        d.keyList()->setCurrentItem(item);
        item->setSelected(true);
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOptFM = Marked();
        CurEmuOptFM = Marked();
    }

    void pagesAndCaptions()
    {
        InitXm7WinOp(0);
        frmXm7WinOp d;
        QCOMPARE(d.titleFlag(), uint8_t(0));
        const QStringList pages = {"全般",       "サウンド",  "キーボード", "ジョイスティック",
                                   "スクリーン", "オプション"};
        QCOMPARE(d.tabs()->count(), pages.size());
        for (int i = 0; i < pages.size(); ++i)
            QCOMPARE(d.tabs()->tabText(i), pages[i]);
        QCOMPARE(c<QPushButton>(d, "cmdDefault")->text(), QStringLiteral("Default"));
        QVERIFY(d.page(0)->isAncestorOf(c<QPushButton>(d, "cmdDefault")));
        QCOMPARE(c<QRadioButton>(d, "optXm7Win_10Op", 3)->text(), QStringLiteral("FM77AV40E&X"));
        QCOMPARE(c<QRadioButton>(d, "optXm7Win_13Op", 5)->text(), QStringLiteral("&48.000kHz"));
        QCOMPARE(c<QRadioButton>(d, "optXm7Win_127Op", 1)->text(),
                 QStringLiteral("640×4&80×16 (VGA上位互換)"));
        QCOMPARE(c<QRadioButton>(d, "optXm7Win_136Op", 2)->text(),
                 QStringLiteral("ポート&2にマウスを接続"));
        QCOMPARE(chk(d, 34)->text(), QStringLiteral("無効(&B)"));
        QCOMPARE(chk(d, 45)->text(),
                 QStringLiteral("カーソルキーの２つ同時押しを斜め方向に対応させる(&8)"));
        for (int i = 0; i <= 2; ++i)
            QVERIFY(c<QPushButton>(d, "cmdXm7Win_3Op", i));
        QCOMPARE(c<QPushButton>(d, "cmdXm7Win_3Op", 2)->text(), QStringLiteral("PC-&98マップ"));
        QCOMPARE(cbx(d, 5)->itemText(3), QStringLiteral("ステレオ(THG)"));
        QCOMPARE(cbx(d, 7)->itemText(4), QStringLiteral("電波新聞社JOY I/F"));
        QCOMPARE(cbx(d, 18)->itemText(9), QStringLiteral("25/秒"));
        QCOMPARE(cbx(d, 18)->itemData(9).toInt(), 9);
        QTreeWidget* l = d.keyList();
        QCOMPARE(l->objectName(), QStringLiteral("lsvXm7Win_3Op"));
        QCOMPARE(l->headerItem()->text(3), QStringLiteral("DirectXｷｰID"));
        QCOMPARE(l->headerItem()->text(1), QStringLiteral("英　数"));
    }

    void defaultBlockRoundTripsUnchanged()
    {
        frmXm7WinOp d(0, nullptr);
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }

    void loadShowsTheBlock()
    {
        EmuOptFM o = Marked();
        o.Xm7Win_1Op[0] = 2;
        o.Xm7Win_1Op[1] = 0;
        o.Xm7Win_1Op[3] = 9;
        o.Xm7Win_1Op[5] = 2;
        o.Xm7Win_1Op[8] = 7;
        o.Xm7Win_1Op[27] = 1;
        o.Xm7Win_1Op[36] = 2;
        o.Xm7Win_1Op[33] = 1;
        o.Xm7Win_2Op[3] = 250;
        Cfg.CfgEmuOptFM = o;
        frmXm7WinOp d(0, nullptr);
        QVERIFY(c<QRadioButton>(d, "optXm7Win_10Op", 2)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optXm7Win_11Op", 0)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optXm7Win_13Op", 9)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optXm7Win_127Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optXm7Win_136Op", 2)->isChecked());
        QCOMPARE(cbx(d, 5)->currentText(), QStringLiteral("ステレオ(反転)"));
        QCOMPARE(cbx(d, 8)->currentText(), QStringLiteral("8/秒"));
        QVERIFY(chk(d, 33)->isChecked());
        QVERIFY(chk(d, 2)->isChecked());
        QCOMPARE(txt(d, 0)->text(), QStringLiteral("1799"));
        QCOMPARE(txt(d, 3)->text(), QStringLiteral("250"));
        QCOMPARE(txt(d, 4)->text(), QStringLiteral("1200"));
        QCOMPARE(txt(d, 5)->text(), QStringLiteral("2016"));
        // The direction lists with the defaults' codes.
        QCOMPARE(cbx(d, 10)->count(), 7);
        QCOMPARE(cbx(d, 10)->currentText(), QStringLiteral("↑"));
        QCOMPARE(cbx(d, 14)->currentText(), QStringLiteral("使用しない"));
        QCOMPARE(cbx(d, 26)->currentText(), QStringLiteral("Bボタン"));
    }

    void storeWritesEveryElement()
    {
        frmXm7WinOp d(1, nullptr);
        c<QRadioButton>(d, "optXm7Win_10Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optXm7Win_11Op", 0)->setChecked(true);
        c<QRadioButton>(d, "optXm7Win_13Op", 8)->setChecked(true);
        c<QRadioButton>(d, "optXm7Win_127Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optXm7Win_136Op", 2)->setChecked(true);
        const int checks[] = {2,  4,  6,  28, 29, 30, 31, 32, 33, 34, 35, 37,
                              38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48};
        EmuOptFM want = Marked();
        for (int i : checks) {
            chk(d, i)->setChecked(!chk(d, i)->isChecked());
            want.Xm7Win_1Op[i] = chk(d, i)->isChecked() ? 1 : 0;
        }
        cbx(d, 5)->setCurrentIndex(3);
        cbx(d, 7)->setCurrentIndex(4);
        cbx(d, 8)->setCurrentIndex(9);
        cbx(d, 9)->setCurrentIndex(1);
        cbx(d, 17)->setCurrentIndex(2);
        cbx(d, 18)->setCurrentIndex(5);
        cbx(d, 19)->setCurrentIndex(6);
        cbx(d, 11)->setCurrentIndex(cbx(d, 11)->findData(116));
        cbx(d, 24)->setCurrentIndex(cbx(d, 24)->findData(112));
        const int texts[][2] = {{0, 100}, {1, 200}, {2, 300}, {3, 500}, {4, 2000}, {5, 3000}};
        for (const auto& t : texts)
            txt(d, t[0])->setText(QString::number(t[1]));
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        want.Xm7Win_1Op[0] = 1;
        want.Xm7Win_1Op[1] = 0;
        want.Xm7Win_1Op[3] = 8;
        want.Xm7Win_1Op[27] = 1;
        want.Xm7Win_1Op[36] = 2;
        want.Xm7Win_1Op[5] = 3;
        want.Xm7Win_1Op[7] = 4;
        want.Xm7Win_1Op[8] = 9;
        want.Xm7Win_1Op[9] = 1;
        want.Xm7Win_1Op[17] = 2;
        want.Xm7Win_1Op[18] = 5;
        want.Xm7Win_1Op[19] = 6;
        want.Xm7Win_1Op[11] = 116;
        want.Xm7Win_1Op[24] = 112;
        for (const auto& t : texts)
            want.Xm7Win_2Op[t[0]] = static_cast<int16_t>(t[1]);
        for (size_t i = 0; i < want.Xm7Win_1Op.size(); ++i)
            QCOMPARE(CurEmuOptFM.Xm7Win_1Op[i], want.Xm7Win_1Op[i]);
        QVERIFY(CurEmuOptFM == want);
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }

    void emptyBoxesStoreTheirFallbacks()
    {
        frmXm7WinOp d(0, nullptr);
        for (int i : {0, 1, 2, 3, 4, 5})
            txt(d, i)->clear();
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        const int16_t want[] = {1, 1, 1, 40, 100, 1};
        for (int i = 0; i < 6; ++i)
            QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_2Op[i], want[i]);
        QCOMPARE(d.boxLimit(txt(d, 3)), 1000.0);
        QCOMPARE(d.boxLimit(txt(d, 4)), 9999.0);
    }

    void groupWithNoButtonOnKeepsTheValue()
    {
        EmuOptFM o = Marked();
        o.Xm7Win_1Op[0] = 7;
        o.Xm7Win_1Op[3] = 1;
        o.Xm7Win_1Op[36] = 0;
        Cfg.CfgEmuOptFM = o;
        frmXm7WinOp d(0, nullptr);
        for (int i : {1, 2, 3})
            QVERIFY(!c<QRadioButton>(d, "optXm7Win_10Op", i)->isChecked());
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_1Op[0], uint8_t(7));
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_1Op[3], uint8_t(1));
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_1Op[36], uint8_t(0));
    }

    void enablingRules()
    {
        EmuOptFM o = Marked();
        o.Xm7Win_1Op[2] = 0;
        o.Xm7Win_1Op[44] = 1;
        Cfg.CfgEmuOptFM = o;
        frmXm7WinOp d(0, nullptr);
        QVERIFY(!chk(d, 38)->isEnabled());
        QVERIFY(chk(d, 45)->isEnabled());
        chk(d, 2)->setChecked(true);
        chk(d, 44)->setChecked(false);
        QVERIFY(chk(d, 38)->isEnabled());
        QVERIFY(!chk(d, 45)->isEnabled());
    }

    void defaultButtonSetsTheSpeedsOnly()
    {
        frmXm7WinOp d(0, nullptr);
        for (int i : {0, 1, 2, 3, 4, 5})
            txt(d, i)->setText(QStringLiteral("50"));
        QTest::mouseClick(c<QPushButton>(d, "cmdDefault"), Qt::LeftButton);
        QCOMPARE(txt(d, 0)->text(), QStringLiteral("1799"));
        QCOMPARE(txt(d, 1)->text(), QStringLiteral("1565"));
        QCOMPARE(txt(d, 2)->text(), QStringLiteral("1998"));
        QCOMPARE(txt(d, 5)->text(), QStringLiteral("2016"));
        QCOMPARE(txt(d, 3)->text(), QStringLiteral("50"));
        QCOMPARE(txt(d, 4)->text(), QStringLiteral("50"));
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }

    void joystickListsFollowTheType()
    {
        EmuOptFM o = Marked();
        o.Xm7Win_1Op[17] = 3;
        o.Xm7Win_1Op[20] = 53; // SPACE(右)
        o.Xm7Win_1Op[21] = 0;
        Cfg.CfgEmuOptFM = o;
        frmXm7WinOp d(0, nullptr);
        // Port 2 is a keyboard: its lists hold "使用しない" and the 100 FM-7 keys.
        QCOMPARE(cbx(d, 20)->count(), 101);
        QCOMPARE(cbx(d, 20)->itemText(0), QStringLiteral("使用しない"));
        QCOMPARE(cbx(d, 20)->itemText(1), QStringLiteral("ESC"));
        QCOMPARE(cbx(d, 20)->currentText(), QStringLiteral("SPACE(右)"));
        QCOMPARE(cbx(d, 21)->currentData().toInt(), 0);
        // Switching to a joystick type puts the direction lists back with their defaults.
        cbx(d, 17)->setCurrentIndex(cbx(d, 17)->findData(1));
        QCOMPARE(cbx(d, 20)->count(), 7);
        const int defaults[] = {112, 113, 114, 115, 0, 116, 117};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(cbx(d, 20 + i)->currentData().toInt(), defaults[i]);
        // Another joystick type keeps the lists and the choices.
        cbx(d, 21)->setCurrentIndex(cbx(d, 21)->findData(117));
        cbx(d, 17)->setCurrentIndex(cbx(d, 17)->findData(4));
        QCOMPARE(cbx(d, 21)->currentData().toInt(), 117);
        // Port 1 goes to the keyboard lists.
        cbx(d, 7)->setCurrentIndex(cbx(d, 7)->findData(3));
        QCOMPARE(cbx(d, 10)->count(), 101);
        QCOMPARE(cbx(d, 10)->itemData(100).toInt(), 102);
        QCOMPARE(cbx(d, 10)->itemText(100), QStringLiteral("PF10"));
    }

    void keyListRows()
    {
        frmXm7WinOp d(0, nullptr);
        QTreeWidget* l = d.keyList();
        QCOMPARE(l->topLevelItemCount(), 100);
        // The 106 map of the defaults.
        QCOMPARE(Texts(l->topLevelItem(0)), (QStringList{"01", "ESC", "", "DIK_KANJI", "148"}));
        QCOMPARE(Texts(l->topLevelItem(9)), (QStringList{"0A", "9", "よ", "DIK_9", "10"}));
        QCOMPARE(Texts(l->topLevelItem(12)),
                 (QStringList{"0D", "^", "へ", "DIK_PREVTRACK", "144"}));
        QCOMPARE(Texts(l->topLevelItem(53)),
                 (QStringList{"36", "*", "テンキー", "DIK_MULTIPLY", "55"}));
        QCOMPARE(Texts(l->topLevelItem(60)), (QStringList{"3D", "=", "テンキー", "", "0"}));
        // Keys 89 and 91 have no row: counted from 1, 90 stands at 89, 92 at 90, 93 at 91.
        QCOMPARE(l->topLevelItem(88)->text(0), QStringLiteral("5A"));
        QCOMPARE(l->topLevelItem(89)->text(0), QStringLiteral("5C"));
        QCOMPARE(l->topLevelItem(90)->text(0), QStringLiteral("5D"));
        QCOMPARE(l->topLevelItem(99)->text(1), QStringLiteral("PF10"));
        QCOMPARE(l->topLevelItem(9)->data(0, Qt::UserRole).toString(), QStringLiteral("k10"));
    }

    void readyMapsReplaceEveryAssignment()
    {
        EmuOptFM o = Marked();
        o.Xm7Win_3Op[89] = 5;
        o.Xm7Win_3Op[61] = 77;
        Cfg.CfgEmuOptFM = o;
        frmXm7WinOp d(0, nullptr);
        QTest::mouseClick(c<QPushButton>(d, "cmdXm7Win_3Op", 2), Qt::LeftButton);
        // Key number: code of the PC-98 map.
        const int pc98[][2] = {{1, 1},    {2, 2},    {13, 144}, {14, 125}, {15, 14},  {26, 25},
                               {27, 145}, {28, 26},  {29, 28},  {40, 146}, {41, 27},  {42, 44},
                               {52, 147}, {53, 57},  {55, 181}, {61, 141}, {65, 179}, {69, 156},
                               {72, 210}, {77, 200}, {82, 29},  {86, 123}, {87, 0},   {88, 148},
                               {90, 112}, {92, 183}, {93, 59},  {102, 68}};
        for (const auto& [key, code] : pc98)
            QCOMPARE(
                Row(d, QStringLiteral("%1").arg(key, 2, 16, QLatin1Char('0')).toUpper())->text(4),
                QString::number(code));
        QCOMPARE(Row(d, "57")->text(3), QStringLiteral(""));
        QTest::mouseClick(c<QPushButton>(d, "cmdXm7Win_3Op", 0), Qt::LeftButton);
        const int m101[][2] = {{1, 41},  {13, 13}, {14, 43}, {27, 26},  {28, 27},
                               {40, 40}, {41, 0},  {52, 0},  {61, 0},   {65, 0},
                               {86, 69}, {87, 0},  {88, 0},  {90, 157}, {92, 1},
                               {30, 30}, {39, 39}, {54, 55}, {80, 208}, {85, 58}};
        for (const auto& [key, code] : m101)
            QCOMPARE(
                Row(d, QStringLiteral("%1").arg(key, 2, 16, QLatin1Char('0')).toUpper())->text(4),
                QString::number(code));
        QCOMPARE(Row(d, "01")->text(3), QStringLiteral("DIK_GRAVE"));
        QTest::mouseClick(c<QPushButton>(d, "cmdXm7Win_3Op", 1), Qt::LeftButton);
        const int m106[][2] = {{1, 148},  {13, 144}, {14, 125}, {27, 145}, {28, 26},
                               {40, 146}, {41, 27},  {52, 43},  {87, 121}, {88, 112},
                               {90, 157}, {92, 1},   {3, 3},    {17, 16},  {43, 45},
                               {57, 74},  {64, 77},  {71, 83},  {79, 203}, {84, 54}};
        for (const auto& [key, code] : m106)
            QCOMPARE(
                Row(d, QStringLiteral("%1").arg(key, 2, 16, QLatin1Char('0')).toUpper())->text(4),
                QString::number(code));
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        // The map sets no key outside its tables.
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_3Op[89], uint8_t(5));
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_3Op[61], uint8_t(0));
        EmuOptFM want = Defaults();
        want.Xm7Win_3Op[89] = 5;
        QVERIFY(Cfg.CfgEmuOptFM.Xm7Win_3Op == want.Xm7Win_3Op);
    }

    void doubleClickMovesACodeToTheChosenKey()
    {
        frmXm7WinOp d(0, nullptr);
        // "A" (key 30) takes DIK_S (31), which "S" (key 31) held.
        Select(d, Row(d, "1E"));
        OnChooser([](QDialog* dlg) {
            auto* cbx = dlg->findChild<QComboBox*>(QStringLiteral("cbxDIKMap"));
            QCOMPARE(cbx->currentText(), QStringLiteral("DIK_A"));
            QCOMPARE(cbx->itemText(0), QStringLiteral("DIK_ESCAPE"));
            QCOMPARE(dlg->windowTitle(), QStringLiteral("割り当てキーの選択"));
            QCOMPARE(dlg->findChild<QLabel*>(QStringLiteral("lblXm7WinOp2Msg"))->text(),
                     QStringLiteral(
                         "キー番号1Eへ割り当てるキーを、\nコンボボックスから選択して下さい。\n"
                         "([OK]で決定します)"));
            Choose(dlg, 31);
        });
        d.lsvXm7Win_3Op_DblClick();
        QCOMPARE(Texts(Row(d, "1E")), (QStringList{"1E", "A", "ち", "DIK_S", "31"}));
        QCOMPARE(Texts(Row(d, "1F")), (QStringList{"1F", "S", "と", "", "0"}));
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_3Op[30], uint8_t(31));
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_3Op[31], uint8_t(0));
    }

    void cancelOrOwnCodeChangesNothing()
    {
        frmXm7WinOp d(0, nullptr);
        QStringList before;
        for (int i = 0; i < d.keyList()->topLevelItemCount(); ++i)
            before << Texts(d.keyList()->topLevelItem(i));
        auto after = [&d] {
            QStringList out;
            for (int i = 0; i < d.keyList()->topLevelItemCount(); ++i)
                out << Texts(d.keyList()->topLevelItem(i));
            return out;
        };
        Select(d, Row(d, "1E"));
        OnChooser([](QDialog* dlg) {
            auto* cbx = dlg->findChild<QComboBox*>(QStringLiteral("cbxDIKMap"));
            cbx->setCurrentIndex(cbx->findData(31));
            QTest::mouseClick(dlg->findChild<QPushButton*>(QStringLiteral("cmdCancel")),
                              Qt::LeftButton);
        });
        d.lsvXm7Win_3Op_DblClick();
        QCOMPARE(after(), before);
        OnChooser([](QDialog* dlg) { Choose(dlg, 30); });
        d.lsvXm7Win_3Op_DblClick();
        QCOMPARE(after(), before);
        // With no row selected a double click does nothing at all.
        d.keyList()->clearSelection();
        d.keyList()->setCurrentItem(nullptr);
        d.lsvXm7Win_3Op_DblClick();
        QCOMPARE(after(), before);
    }

    void cancelAfterApplyKeepsTheApplied()
    {
        frmXm7WinOp d(0, nullptr);
        chk(d, 48)->setChecked(false);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        chk(d, 30)->setChecked(false);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_1Op[48], uint8_t(0));
        QCOMPARE(Cfg.CfgEmuOptFM.Xm7Win_1Op[30], uint8_t(1));
    }

    void openedThroughTheTableForATitle()
    {
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* d = qobject_cast<frmXm7WinOp*>(QApplication::activeModalWidget());
            QVERIFY(d);
            seen = true;
            QCOMPARE(d->titleFlag(), uint8_t(1));
            d->Control<QCheckBox>(QStringLiteral("chkXm7Win_1Op"), 35)->setChecked(true);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QVERIFY(OpenOptionDialog(Emu::Xm7Win, 1, nullptr));
        QVERIFY(seen);
        QCOMPARE(CurEmuOptFM.Xm7Win_1Op[35], uint8_t(1));
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }
};

QTEST_MAIN(TestFrmXm7WinOp)
#include "tst_frmXm7WinOp.moc"
