// The option dialog frame on its own, with a small block: the kinds that the M88 dialog
// doesn't use (item-data and one-character combo boxes, two-digit leading values, a dialog
// without tabs, check boxes that govern value boxes) and the target choice by TitleFlag.
#include "adapters/common/frmOptionDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

using namespace tv;

namespace {

struct Block {
    std::array<uint8_t, 4> A{};
    std::array<int32_t, 2> B{};
    uint8_t C = ' ';
    bool operator==(const Block&) const = default;
};

Block Defaults, Working;

class frmTestOp : public OptionBlockDialog<Block> {
public:
    explicit frmTestOp(uint8_t flag) : OptionBlockDialog<Block>(Defaults, Working, flag, nullptr)
    {
        QFrame* page = SinglePage();
        auto* v = new QVBoxLayout(page);
        QCheckBox* chk =
            Check(QStringLiteral("chkTest_1Op"), 0, QStringLiteral("use"), Elem(Op.A, 0));
        v->addWidget(chk);
        QLineEdit* t = Number(QStringLiteral("txtTest_2Op"), 0, Elem(Op.B, 0), 5000, 1234);
        v->addWidget(t);
        v->addWidget(AddUpDown(t, QStringLiteral("updTest_2Op"), 0, 0, 5000));
        Governs(chk, {t});
        v->addWidget(ComboData(QStringLiteral("cbxTest_1Op"), 1,
                               {{QStringLiteral("low"), 7}, {QStringLiteral("high"), 42}},
                               Elem(Op.A, 1), 3));
        v->addWidget(ComboLead(QStringLiteral("cbxTest_1Op"), 2,
                               {QStringLiteral("0  - 11025"), QStringLiteral("4 - 4 MHz"),
                                QStringLiteral("10 - 10 MHz")},
                               Elem(Op.A, 2)));
        v->addWidget(ComboChar(
            QStringLiteral("cbxTest_3Op"), -1,
            {QStringLiteral("0"), QStringLiteral("9"), QStringLiteral("A"), QStringLiteral("F")},
            Elem(Op.C)));
        FormLoad();
    }
};

// A dialog with one enabling rule over three sources, loaded only when the test says so.
class frmRuleOp : public OptionBlockDialog<Block> {
public:
    frmRuleOp() : OptionBlockDialog<Block>(Defaults, Working, 0, nullptr)
    {
        auto* v = new QVBoxLayout(SinglePage());
        chk = Check(QStringLiteral("chkRule_1Op"), 0, QStringLiteral("on"), Elem(Op.A, 0));
        box = Number(QStringLiteral("txtRule_2Op"), 0, Elem(Op.B, 0), 9999, 0);
        combo =
            ComboLead(QStringLiteral("cbxRule_1Op"), 2,
                      {QStringLiteral("4 - 4 MHz"), QStringLiteral("10 - 10 MHz")}, Elem(Op.A, 2));
        other = Check(QStringLiteral("chkRule_1Op"), 3, QStringLiteral("other"), Elem(Op.A, 3));
        target = Check(QStringLiteral("chkRule_1Op"), 1, QStringLiteral("target"), Elem(Op.A, 1));
        for (QWidget* w :
             {static_cast<QWidget*>(chk), static_cast<QWidget*>(box), static_cast<QWidget*>(combo),
              static_cast<QWidget*>(other), static_cast<QWidget*>(target)})
            v->addWidget(w);
        Rule({chk, box, combo}, [this] {
            ++runs;
            target->setEnabled(chk->isChecked() && box->text() == QStringLiteral("300"));
        });
    }
    void Load() { FormLoad(); }
    QCheckBox* chk;
    QLineEdit* box;
    QComboBox* combo;
    QCheckBox* other;
    QCheckBox* target;
    int runs = 0;
};

} // namespace

class TestFrmOptionDialog : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        Defaults = Block{{1, 42, 10, 0}, {300, 0}, 'A'};
        Working = Block{{0, 7, 4, 0}, {2, 0}, '9'};
    }

    void loadsFromTheTargetOfTheFlag()
    {
        frmTestOp d0(0);
        QVERIFY(d0.Control<QCheckBox>("chkTest_1Op", 0)->isChecked());
        QCOMPARE(d0.Control<QLineEdit>("txtTest_2Op", 0)->text(), QStringLiteral("300"));
        QCOMPARE(d0.Control<QComboBox>("cbxTest_1Op", 1)->currentText(), QStringLiteral("high"));
        QCOMPARE(d0.Control<QComboBox>("cbxTest_1Op", 2)->currentText(),
                 QStringLiteral("10 - 10 MHz"));
        QCOMPARE(d0.Control<QComboBox>("cbxTest_3Op")->currentText(), QStringLiteral("A"));
        frmTestOp d1(1);
        QVERIFY(!d1.Control<QCheckBox>("chkTest_1Op", 0)->isChecked());
        QCOMPARE(d1.Control<QComboBox>("cbxTest_1Op", 1)->currentText(), QStringLiteral("low"));
        QCOMPARE(d1.Control<QComboBox>("cbxTest_1Op", 2)->currentText(),
                 QStringLiteral("4 - 4 MHz"));
        QCOMPARE(d1.Control<QComboBox>("cbxTest_3Op")->currentText(), QStringLiteral("9"));
        // No tab strip: one frame.
        QVERIFY(!d1.findChild<QTabBar*>(QStringLiteral("tbsOptions")));
        QCOMPARE(d1.pageCount(), 1);
        QVERIFY(d1.findChild<QFrame*>(QStringLiteral("fraOp(0)")));
    }

    void storesTheComboKindsAndFallbacks()
    {
        frmTestOp d(1);
        d.Control<QComboBox>("cbxTest_1Op", 1)->setCurrentIndex(1);
        d.Control<QComboBox>("cbxTest_1Op", 2)->setCurrentIndex(0);
        d.Control<QComboBox>("cbxTest_3Op")->setCurrentIndex(3);
        d.Control<QLineEdit>("txtTest_2Op", 0)->clear();
        QTest::mouseClick(d.Control<QPushButton>("cmdApply"), Qt::LeftButton);
        QCOMPARE(int(Working.A[1]), 42);
        QCOMPARE(int(Working.A[2]), 0);
        QCOMPARE(int(Working.C), int('F'));
        QCOMPARE(Working.B[0], 1234);
        d.Control<QComboBox>("cbxTest_1Op", 1)->setCurrentIndex(-1);
        d.Control<QComboBox>("cbxTest_1Op", 2)->setCurrentIndex(2);
        d.Control<QComboBox>("cbxTest_3Op")->setCurrentIndex(-1);
        d.StoreOp();
        QCOMPARE(int(Working.A[1]), 3);
        QCOMPARE(int(Working.A[2]), 10);
        QCOMPARE(int(Working.C), int(' '));
        QCOMPARE(Defaults, (Block{{1, 42, 10, 0}, {300, 0}, 'A'}));
    }

    void valuesWithoutItemLeaveTheComboUnselected()
    {
        Working.A[1] = 8;
        Working.A[2] = 5;
        Working.C = 'Z';
        frmTestOp d(1);
        QCOMPARE(d.Control<QComboBox>("cbxTest_1Op", 1)->currentIndex(), -1);
        QCOMPARE(d.Control<QComboBox>("cbxTest_1Op", 2)->currentIndex(), -1);
        QCOMPARE(d.Control<QComboBox>("cbxTest_3Op")->currentIndex(), -1);
    }

    void checkBoxGovernsItsValueBox()
    {
        frmTestOp d(1);
        auto* chk = d.Control<QCheckBox>("chkTest_1Op", 0);
        auto* t = d.Control<QLineEdit>("txtTest_2Op", 0);
        auto* u = d.Control<UpDown>("updTest_2Op", 0);
        QVERIFY(!t->isEnabled());
        QVERIFY(!u->isEnabled());
        QCOMPARE(t->palette().color(QPalette::Base), t->palette().color(QPalette::Window));
        chk->setChecked(true);
        QVERIFY(t->isEnabled());
        QVERIFY(u->isEnabled());
        QCOMPARE(t->palette().color(QPalette::Base), QColor(255, 255, 255));
        chk->setChecked(false);
        QVERIFY(!t->isEnabled());
        QCOMPARE(t->palette().color(QPalette::Base), t->palette().color(QPalette::Window));
    }

    void ruleRunsAfterLoadAndOnEachChangeOfEachSource()
    {
        frmRuleOp d;
        // Before load the rule doesn't run, whatever changes.
        d.chk->setChecked(true);
        d.box->setText(QStringLiteral("1"));
        QCOMPARE(d.runs, 0);
        QVERIFY(d.target->isEnabled());
        // Load changes the sources (the defaults hold 1 and 300) and runs the rule once.
        d.chk->setChecked(false);
        d.Load();
        QCOMPARE(d.runs, 1);
        QVERIFY(d.chk->isChecked());
        QCOMPARE(d.box->text(), QStringLiteral("300"));
        QVERIFY(d.target->isEnabled());
        d.chk->setChecked(false);
        QCOMPARE(d.runs, 2);
        QVERIFY(!d.target->isEnabled());
        d.chk->setChecked(true);
        QCOMPARE(d.runs, 3);
        QVERIFY(d.target->isEnabled());
        d.box->setText(QStringLiteral("30"));
        QCOMPARE(d.runs, 4);
        QVERIFY(!d.target->isEnabled());
        d.combo->setCurrentIndex(0);
        QCOMPARE(d.runs, 5);
        // A control that isn't a source doesn't run it.
        d.other->setChecked(!d.other->isChecked());
        QCOMPARE(d.runs, 5);
    }

    void ctrlTabWithoutTabsDoesNothing()
    {
        frmTestOp d(1);
        QTest::keyClick(d.Control<QCheckBox>("chkTest_1Op", 0), Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(d.page(0)->isVisibleTo(&d));
    }
};

QTEST_MAIN(TestFrmOptionDialog)
#include "tst_frmOptionDialog.moc"
