#pragma once
// The frame that every emulator option dialog shares: a private copy of the family's option
// block, the choice of target by TitleFlag (0 the configuration's defaults, else the current
// title's working copy), load and StoreOp, the buttons cmdOK / cmdCancel / cmdApply, the tab
// strip tbsOptions over the pages fraOp(i) with Ctrl+Tab, the key filter of number boxes, the
// three kinds of combo box, the value labels of sliders, and enabling rules stated once.
//
// A dialog is built as tables of rows (Lines) or with the factories below: each creates one
// named control and records how it maps to an element of the block (kind, limit, fallback,
// inversion, forced value). Load sets every control from the private copy; StoreOp walks the
// bindings in the order in which they were made and then copies the whole private copy over the
// target, so elements that a dialog doesn't own pass through unchanged.
#include <QDialog>
#include <QList>
#include <QMap>
#include <QString>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFrame;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QTabBar;
class QToolButton;
class QVBoxLayout;
class QWidget;

namespace tv {

// The name of a control: the array name with its index in parentheses, or the bare name.
QString ControlName(const QString& name, int index = -1);

// Access to one element of the private block. Values pass as double so that byte, 16-bit,
// 32-bit and float elements share one binding type; integer elements take the whole part.
struct OptElem {
    std::function<double()> get;
    std::function<void(double)> set;
};

template <typename T, size_t N> OptElem Elem(std::array<T, N>& a, size_t i)
{
    return {[&a, i] { return static_cast<double>(a[i]); },
            [&a, i](double v) {
                if constexpr (std::is_floating_point_v<T>)
                    a[i] = static_cast<T>(v);
                else
                    a[i] = static_cast<T>(static_cast<long long>(v));
            }};
}
template <typename T> OptElem Elem(T& x)
{
    return {[&x] { return static_cast<double>(x); },
            [&x](double v) {
                if constexpr (std::is_floating_point_v<T>)
                    x = static_cast<T>(v);
                else
                    x = static_cast<T>(static_cast<long long>(v));
            }};
}

// The up-down control beside a number box: arrows that step the box's number within the
// limits. The limits apply to the arrows only; typing is limited by the key filter.
class UpDown : public QWidget {
    Q_OBJECT
public:
    UpDown(QLineEdit* buddy, int minimum, int maximum, int step = 1, QWidget* parent = nullptr);
    QToolButton* upButton() const { return up_; }
    QToolButton* downButton() const { return down_; }
    void stepBy(int steps);

private:
    QLineEdit* buddy_;
    QToolButton* up_;
    QToolButton* down_;
    int min_, max_, step_;
};

// An option group: radio buttons sharing one element, each button standing for a value (its
// Index). Nothing selected stores the group's fallback.
class OptGroup {
public:
    QRadioButton* Add(const QString& name, int index, const QString& caption, double value);
    QRadioButton* Add(const QString& name, int index, const QString& caption)
    {
        return Add(name, index, caption, index);
    }
    QButtonGroup* buttons() const { return group_; }

private:
    friend class OptionDialog;
    QButtonGroup* group_ = nullptr;
    QList<QPair<QRadioButton*, double>> values_;
};

class OptionDialog : public QDialog {
    Q_OBJECT
public:
    ~OptionDialog() override;

    uint8_t titleFlag() const { return TitleFlag; }

    // The control named `name` (with its index), for callers and tests.
    template <typename T> T* Control(const QString& name, int index = -1) const
    {
        return findChild<T*>(ControlName(name, index));
    }

    // Every control into the private copy, then the private copy over the target block.
    void StoreOp();

    QTabBar* tabs() const { return tbsOptions_; }
    QFrame* page(int i) const { return pages_.value(i); }
    int pageCount() const { return static_cast<int>(pages_.size()); }

    // Limit of the number box, or -1 when it isn't one.
    double boxLimit(const QLineEdit* box) const { return limits_.value(box, -1); }

    // The background colour rule of value boxes: enabled boxes are white, disabled ones take
    // the window's colour; the up-down beside a box follows it.
    static void SetValueEnabled(QWidget* w, bool on);

protected:
    OptionDialog(uint8_t titleFlag, QWidget* parent);

    // Copy of the target block into the private copy, and back.
    virtual void CopyIn() = 0;
    virtual void CopyOut() = 0;

    // Form_Load: the private copy from the target, the first page shown, every control set.
    void FormLoad();

    // --- Building the form ---
    // Adds a page with its tab; the page is the frame fraOp(i).
    QFrame* AddPage(const QString& caption);
    // A dialog without tabs has one frame, fraOp(0), and no tab strip.
    QFrame* SinglePage();

    QCheckBox* Check(const QString& name, int index, const QString& caption, OptElem e,
                     bool invert = false, std::optional<double> forced = std::nullopt);
    // A check box that edits no element (a switch of the form only).
    QCheckBox* PlainCheck(const QString& name, int index, const QString& caption);
    // A radio button whose element is 1 when it is selected; `group` keeps it exclusive with
    // its neighbours, which may edit other elements or none.
    QRadioButton* RadioBit(QButtonGroup* group, const QString& name, int index,
                           const QString& caption, OptElem e);
    // A radio button in `group` that edits no element: selected when none of the group's
    // element buttons is.
    QRadioButton* RadioNone(QButtonGroup* group, const QString& name, int index,
                            const QString& caption);
    QButtonGroup* NewButtonGroup();
    OptGroup& Group(OptElem e, double fallback);

    // A number box with its key filter; `limit` is the greatest value the filter lets in.
    QLineEdit* NumberBox(const QString& name, int index, double limit);
    // A number box bound to an element: shows value * scale; stores the whole part of the
    // number / scale, or `fallback` when the box is empty.
    QLineEdit* Number(const QString& name, int index, OptElem e, double limit, double fallback,
                      double scale = 1);
    UpDown* AddUpDown(QLineEdit* box, const QString& name, int index, int minimum, int maximum,
                      int step = 1);

    QSlider* Slider(const QString& name, int index, OptElem e, int minimum, int maximum,
                    int smallStep = 1);
    // A label that shows the slider's value through `format` on every change.
    QLabel* ValueLabel(QSlider* slider, const QString& name, int index,
                       std::function<QString(int)> format);

    // The three kinds of combo box. Load selects the item whose value equals the element, or
    // none; nothing selected stores `fallback`.
    // Items whose first two characters, trimmed, are the value ("0 - AUTO", "10 - 10 MHz").
    QComboBox* ComboLead(const QString& name, int index, const QStringList& items, OptElem e,
                         double fallback = 0);
    // Items whose item data is the value.
    QComboBox* ComboData(const QString& name, int index, const QList<QPair<QString, int>>& items,
                         OptElem e, double fallback = 0);
    // Items of one character; the element is the character's code.
    QComboBox* ComboChar(const QString& name, int index, const QStringList& items, OptElem e,
                         double fallback = ' ');

    // An element with a mapping of its own.
    void Custom(std::function<void()> load, std::function<void()> store);

    // A fixed caption.
    QLabel* Caption(const QString& text, const QString& name = QString());
    QPushButton* Button(const QString& name, int index, const QString& caption);

    // An enabling rule, stated once: `apply` sets enabled states from the state of `sources`.
    // The frame runs it after load and on every change of any source from then on; changes
    // that load itself makes don't run it one by one.
    void Rule(const QList<QWidget*>& sources, std::function<void()> apply);
    // Keeps `boxes` enabled (white) while `check` is on, disabled (window colour) while off.
    void Governs(QAbstractButton* check, const QList<QWidget*>& boxes);
    // Switches that exclude one another: checking `check` clears each of `others`, whenever
    // it happens, load included, as a click would.
    void Clears(QAbstractButton* check, const QList<QAbstractButton*>& others);

    // A number box with its up-down in one row, the box `width` wide.
    static QHBoxLayout* BoxRow(QLineEdit* box, QWidget* upDown, int width = 64);

public:
    // --- Pages as tables ---
    // What one line of a page table makes. A Group line starts an option group (its element
    // and fallback) that the Option lines behind it fill.
    enum class RowKind {
        Check,    // check box: the element is 1 when it is on
        CheckNot, // check box stored inverted: on stores 0
        CheckSet, // check box whose element is always stored as `fallback`
        Group,    // no control: the element and fallback of the Option lines that follow
        Option,   // radio button of the current group, standing for its index
        Number,   // caption, number box with its up-down, unit
        Slider,   // caption, slider, value label
        Lead,     // caption, combo box of items led by their value
    };
    struct Row {
        RowKind kind;
        const char* name = nullptr;    // array name of the control
        int index = -1;                // its Index, -1 for none
        const char* caption = nullptr; // UTF-8; of a Number, Slider or Lead the label in front
        OptElem elem = {};
        double limit = 0;    // Number: greatest typed value and up-down maximum; Slider: maximum
        double fallback = 0; // Number: an empty box; Group and Lead: nothing selected; CheckSet
        int minimum = 0;     // Number: up-down minimum; Slider: minimum
        int step = 1;        // Number: up-down step; Slider: small step
        const char* unit = nullptr;              // Number: the label behind the box
        double scale = 1;                        // Number: the box shows value * scale
        int width = 64;                          // Number: width of the box
        std::function<QString(int)> format = {}; // Slider: text of the value label
        const char* valueName = nullptr;   // Slider: value label, else "lbl..." with the index
        const char* captionName = nullptr; // object name of the label in front
        QStringList items = {};            // Lead: the items
    };

protected:
    // Builds the lines of `rows` in a grid, in the order of the table. Checks and options flow
    // `perLine` to a line; in a table with Number, Slider or Lead lines each check has a line
    // of its own. `reserve` lines stay free at the end for the caller.
    QGridLayout* Lines(const std::vector<Row>& rows, int perLine = 1, int reserve = 0,
                       int captionWidth = 0);

    bool eventFilter(QObject* watched, QEvent* event) override;

    uint8_t TitleFlag = 0;

private:
    struct Binding {
        std::function<void()> load;
        std::function<void()> store;
    };
    bool FilterNumberKey(QLineEdit* box, QKeyEvent* key);
    void ShowPage(int index);
    void NextTab();
    void InstallKeyPreview();

    QTabBar* tbsOptions_ = nullptr;
    QWidget* pageArea_ = nullptr;
    QList<QFrame*> pages_;
    std::vector<Binding> bindings_;
    std::vector<std::unique_ptr<OptGroup>> groups_;
    QList<QButtonGroup*> buttonGroups_;
    QMap<QButtonGroup*, QRadioButton*> noneButtons_;
    QMap<const QLineEdit*, double> limits_;
    QMap<QWidget*, UpDown*> upDowns_;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    QPushButton* cmdApply_ = nullptr;
    std::vector<std::function<void()>> rules_;
    bool loaded_ = false; // rules run on changes only once load has set every control
};

// The frame for one family's block type.
template <typename Block> class OptionBlockDialog : public OptionDialog {
protected:
    OptionBlockDialog(Block& defaults, Block& working, uint8_t titleFlag, QWidget* parent)
        : OptionDialog(titleFlag, parent), defaults_(defaults), working_(working)
    {
    }
    Block& Target() { return TitleFlag == 0 ? defaults_ : working_; }
    void CopyIn() override { Op = Target(); }
    void CopyOut() override { Target() = Op; }

public:
    Block Op{}; // the private copy

private:
    Block& defaults_;
    Block& working_;
};

} // namespace tv
