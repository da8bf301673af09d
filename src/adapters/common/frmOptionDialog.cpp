#include "adapters/common/frmOptionDialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tv {

QString ControlName(const QString& name, int index)
{
    return index < 0 ? name : name + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

namespace {

// A number as the boxes hold it: the text read as a decimal number, 0 when it isn't one.
double BoxNumber(const QString& text)
{
    bool ok = false;
    const double v = text.trimmed().toDouble(&ok);
    return ok ? v : 0;
}

QString NumberText(double v)
{
    return QString::number(static_cast<long long>(v));
}

} // namespace

// --- UpDown ---

UpDown::UpDown(QLineEdit* buddy, int minimum, int maximum, int step, QWidget* parent)
    : QWidget(parent), buddy_(buddy), min_(minimum), max_(maximum), step_(step)
{
    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(0);
    up_ = new QToolButton(this);
    down_ = new QToolButton(this);
    for (auto* b : {up_, down_}) {
        b->setAutoRepeat(true);
        b->setFixedSize(16, 11);
        b->setFocusPolicy(Qt::NoFocus);
        lay->addWidget(b);
    }
    // The two arrows stay together whatever room the row gives them.
    setFixedSize(16, 22);
    up_->setArrowType(Qt::UpArrow);
    down_->setArrowType(Qt::DownArrow);
    connect(up_, &QToolButton::clicked, this, [this] { stepBy(1); });
    connect(down_, &QToolButton::clicked, this, [this] { stepBy(-1); });
}

void UpDown::stepBy(int steps)
{
    long long v = static_cast<long long>(BoxNumber(buddy_->text())) + 1LL * steps * step_;
    v = std::clamp<long long>(v, min_, max_);
    buddy_->setText(QString::number(v));
}

// --- OptGroup ---

QRadioButton* OptGroup::Add(const QString& name, int index, const QString& caption, double value)
{
    auto* b = new QRadioButton(caption);
    b->setObjectName(ControlName(name, index));
    group_->addButton(b);
    values_.append({b, value});
    return b;
}

// --- OptionDialog ---

OptionDialog::OptionDialog(uint8_t titleFlag, QWidget* parent)
    : QDialog(parent), TitleFlag(titleFlag)
{
    setModal(true);
    auto* main = new QVBoxLayout(this);
    tbsOptions_ = new QTabBar(this);
    tbsOptions_->setObjectName(QStringLiteral("tbsOptions"));
    tbsOptions_->setExpanding(false);
    tbsOptions_->setUsesScrollButtons(false);
    tbsOptions_->setFocusPolicy(Qt::NoFocus);
    main->addWidget(tbsOptions_);
    pageArea_ = new QWidget(this);
    // Every page stands in the same cell: the frames lie on top of one another and only the
    // selected one is visible.
    auto* grid = new QGridLayout(pageArea_);
    grid->setContentsMargins(0, 0, 0, 0);
    main->addWidget(pageArea_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdOK_ = new QPushButton(QStringLiteral("OK"), this);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_ = new QPushButton(QStringLiteral("キャンセル"), this);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdApply_ = new QPushButton(QStringLiteral("適用(&A)"), this);
    cmdApply_->setObjectName(QStringLiteral("cmdApply"));
    for (auto* b : {cmdOK_, cmdCancel_, cmdApply_}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    cmdOK_->setDefault(true);
    main->addLayout(buttons);

    connect(cmdApply_, &QPushButton::clicked, this, [this] { StoreOp(); });
    connect(cmdOK_, &QPushButton::clicked, this, [this] {
        StoreOp();
        accept();
    });
    // Cancel stores nothing; what an earlier Apply stored stays.
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(tbsOptions_, &QTabBar::currentChanged, this, [this](int i) { ShowPage(i); });
}

OptionDialog::~OptionDialog() = default;

QFrame* OptionDialog::AddPage(const QString& caption)
{
    auto* f = new QFrame(pageArea_);
    f->setObjectName(ControlName(QStringLiteral("fraOp"), static_cast<int>(pages_.size())));
    f->setFrameShape(QFrame::StyledPanel);
    // Hidden pages keep their room, so that the dialog is as large as its largest page.
    QSizePolicy sp = f->sizePolicy();
    sp.setRetainSizeWhenHidden(true);
    f->setSizePolicy(sp);
    static_cast<QGridLayout*>(pageArea_->layout())->addWidget(f, 0, 0);
    pages_.append(f);
    tbsOptions_->addTab(caption);
    return f;
}

QFrame* OptionDialog::SinglePage()
{
    tbsOptions_->hide();
    tbsOptions_->setObjectName(QString());
    auto* f = new QFrame(pageArea_);
    f->setObjectName(ControlName(QStringLiteral("fraOp"), 0));
    static_cast<QGridLayout*>(pageArea_->layout())->addWidget(f, 0, 0);
    pages_.append(f);
    return f;
}

void OptionDialog::ShowPage(int index)
{
    for (int i = 0; i < pages_.size(); ++i)
        pages_[i]->setVisible(i == index);
}

void OptionDialog::NextTab()
{
    const int n = tbsOptions_->count();
    if (n == 0)
        return;
    tbsOptions_->setCurrentIndex((tbsOptions_->currentIndex() + 1) % n);
}

void OptionDialog::InstallKeyPreview()
{
    // Form_KeyDown sees the keys of every control first, as with a form's key preview.
    installEventFilter(this);
    for (QWidget* w : findChildren<QWidget*>())
        w->installEventFilter(this);
}

void OptionDialog::FormLoad()
{
    CopyIn();
    if (tbsOptions_->count() > 0)
        tbsOptions_->setCurrentIndex(0);
    ShowPage(0);
    // Groups drop their exclusivity while loading, so that a value matching no button leaves
    // all of them unselected.
    QList<QButtonGroup*> all = buttonGroups_;
    for (auto& g : groups_)
        all.append(g->group_);
    for (auto* g : all)
        g->setExclusive(false);
    for (auto& b : bindings_)
        if (b.load)
            b.load();
    for (auto it = noneButtons_.begin(); it != noneButtons_.end(); ++it) {
        if (it.key()->checkedButton() == nullptr)
            it.value()->setChecked(true);
    }
    for (auto* g : all) {
        // With several buttons on (a block that was never written by this dialog), the last
        // one in the order of the form wins.
        QAbstractButton* keep = nullptr;
        for (auto* b : g->buttons())
            if (b->isChecked())
                keep = b;
        for (auto* b : g->buttons())
            if (b != keep && b->isChecked())
                b->setChecked(false);
        g->setExclusive(true);
    }
    for (auto& rule : rules_)
        rule();
    loaded_ = true;
    InstallKeyPreview();
}

void OptionDialog::StoreOp()
{
    for (auto& b : bindings_)
        if (b.store)
            b.store();
    CopyOut();
}

QCheckBox* OptionDialog::Check(const QString& name, int index, const QString& caption, OptElem e,
                               bool invert, std::optional<double> forced)
{
    auto* c = PlainCheck(name, index, caption);
    bindings_.push_back({[c, e, invert] {
                             // An inverted box shows checked for the element 0.
                             c->setChecked(invert ? e.get() == 0 : e.get() == 1);
                         },
                         [c, e, invert, forced] {
                             if (forced) {
                                 e.set(*forced);
                                 return;
                             }
                             e.set((c->isChecked() != invert) ? 1 : 0);
                         }});
    return c;
}

QCheckBox* OptionDialog::PlainCheck(const QString& name, int index, const QString& caption)
{
    auto* c = new QCheckBox(caption, this);
    c->setObjectName(ControlName(name, index));
    return c;
}

QButtonGroup* OptionDialog::NewButtonGroup()
{
    auto* g = new QButtonGroup(this);
    buttonGroups_.append(g);
    return g;
}

QRadioButton* OptionDialog::RadioBit(QButtonGroup* group, const QString& name, int index,
                                     const QString& caption, OptElem e)
{
    auto* b = new QRadioButton(caption, this);
    b->setObjectName(ControlName(name, index));
    group->addButton(b);
    bindings_.push_back(
        {[b, e] { b->setChecked(e.get() == 1); }, [b, e] { e.set(b->isChecked() ? 1 : 0); }});
    return b;
}

QRadioButton* OptionDialog::RadioNone(QButtonGroup* group, const QString& name, int index,
                                      const QString& caption)
{
    auto* b = new QRadioButton(caption, this);
    b->setObjectName(ControlName(name, index));
    group->addButton(b);
    noneButtons_.insert(group, b);
    bindings_.push_back({[b] { b->setChecked(false); }, nullptr});
    return b;
}

OptGroup& OptionDialog::Group(OptElem e, double fallback)
{
    groups_.push_back(std::make_unique<OptGroup>());
    OptGroup* g = groups_.back().get();
    g->group_ = new QButtonGroup(this);
    bindings_.push_back({[g, e] {
                             for (auto& [b, v] : g->values_)
                                 b->setChecked(v == e.get());
                         },
                         [g, e, fallback] {
                             for (auto& [b, v] : g->values_) {
                                 if (b->isChecked()) {
                                     e.set(v);
                                     return;
                                 }
                             }
                             e.set(fallback);
                         }});
    return *g;
}

QLineEdit* OptionDialog::NumberBox(const QString& name, int index, double limit)
{
    auto* t = new QLineEdit(this);
    t->setObjectName(ControlName(name, index));
    t->setAlignment(Qt::AlignRight);
    limits_.insert(t, limit);
    t->installEventFilter(this);
    SetValueEnabled(t, true);
    return t;
}

QLineEdit* OptionDialog::Number(const QString& name, int index, OptElem e, double limit,
                                double fallback, double scale)
{
    auto* t = NumberBox(name, index, limit);
    bindings_.push_back({[t, e, scale] { t->setText(NumberText(e.get() * scale)); },
                         [t, e, fallback, scale] {
                             if (t->text().isEmpty()) {
                                 e.set(fallback);
                                 return;
                             }
                             e.set(std::floor(BoxNumber(t->text()) / scale));
                         }});
    return t;
}

UpDown* OptionDialog::AddUpDown(QLineEdit* box, const QString& name, int index, int minimum,
                                int maximum, int step)
{
    auto* u = new UpDown(box, minimum, maximum, step, this);
    u->setObjectName(ControlName(name, index));
    upDowns_.insert(box, u);
    return u;
}

QSlider* OptionDialog::Slider(const QString& name, int index, OptElem e, int minimum, int maximum,
                              int smallStep)
{
    auto* s = new QSlider(Qt::Horizontal, this);
    s->setObjectName(ControlName(name, index));
    s->setRange(minimum, maximum);
    s->setSingleStep(smallStep);
    s->setPageStep(std::max(smallStep, (maximum - minimum) / 10));
    bindings_.push_back(
        {[s, e] { s->setValue(static_cast<int>(e.get())); }, [s, e] { e.set(s->value()); }});
    return s;
}

QLabel* OptionDialog::ValueLabel(QSlider* slider, const QString& name, int index,
                                 std::function<QString(int)> format)
{
    auto* l = new QLabel(this);
    l->setObjectName(ControlName(name, index));
    l->setText(format(slider->value()));
    l->setMinimumWidth(l->fontMetrics().horizontalAdvance(QStringLiteral("Mute ms ")));
    // The label reads the slider's value rather than the signal's: a Change handler that
    // corrects the value (the speed's rounding) emits again from inside the first emission,
    // and the first one's stale value must not come last.
    connect(slider, &QSlider::valueChanged, l,
            [l, format, slider](int) { l->setText(format(slider->value())); });
    return l;
}

QComboBox* OptionDialog::ComboLead(const QString& name, int index, const QStringList& items,
                                   OptElem e, double fallback)
{
    auto* c = new QComboBox(this);
    c->setObjectName(ControlName(name, index));
    c->addItems(items);
    auto valueOf = [c](int i) { return BoxNumber(c->itemText(i).left(2)); };
    bindings_.push_back({[c, e, valueOf] {
                             c->setCurrentIndex(-1);
                             for (int i = 0; i < c->count(); ++i)
                                 if (valueOf(i) == e.get()) {
                                     c->setCurrentIndex(i);
                                     break;
                                 }
                         },
                         [c, e, valueOf, fallback] {
                             e.set(c->currentIndex() < 0 ? fallback : valueOf(c->currentIndex()));
                         }});
    return c;
}

QComboBox* OptionDialog::ComboData(const QString& name, int index,
                                   const QList<QPair<QString, int>>& items, OptElem e,
                                   double fallback)
{
    auto* c = new QComboBox(this);
    c->setObjectName(ControlName(name, index));
    for (const auto& [text, data] : items)
        c->addItem(text, data);
    bindings_.push_back(
        {[c, e] { c->setCurrentIndex(c->findData(static_cast<int>(e.get()))); },
         [c, e, fallback] { e.set(c->currentIndex() < 0 ? fallback : c->currentData().toInt()); }});
    return c;
}

QComboBox* OptionDialog::ComboChar(const QString& name, int index, const QStringList& items,
                                   OptElem e, double fallback)
{
    auto* c = new QComboBox(this);
    c->setObjectName(ControlName(name, index));
    c->addItems(items);
    bindings_.push_back({[c, e] {
                             const QString v(QChar(static_cast<char16_t>(e.get())));
                             c->setCurrentIndex(-1);
                             for (int i = 0; i < c->count(); ++i)
                                 if (c->itemText(i).trimmed() == v) {
                                     c->setCurrentIndex(i);
                                     break;
                                 }
                         },
                         [c, e, fallback] {
                             const QString t =
                                 c->currentIndex() < 0 ? QString() : c->currentText().trimmed();
                             e.set(t.isEmpty() ? fallback : t[0].unicode());
                         }});
    return c;
}

void OptionDialog::Custom(std::function<void()> load, std::function<void()> store)
{
    bindings_.push_back({std::move(load), std::move(store)});
}

QLabel* OptionDialog::Caption(const QString& text, const QString& name)
{
    auto* l = new QLabel(text, this);
    if (!name.isEmpty())
        l->setObjectName(name);
    return l;
}

QPushButton* OptionDialog::Button(const QString& name, int index, const QString& caption)
{
    auto* b = new QPushButton(caption, this);
    b->setObjectName(ControlName(name, index));
    b->setAutoDefault(false);
    return b;
}

void OptionDialog::SetValueEnabled(QWidget* w, bool on)
{
    w->setEnabled(on);
    QPalette p = w->palette();
    const QColor back = on ? QColor(255, 255, 255) : w->palette().color(QPalette::Window);
    p.setColor(QPalette::Active, QPalette::Base, back);
    p.setColor(QPalette::Inactive, QPalette::Base, back);
    p.setColor(QPalette::Disabled, QPalette::Base, back);
    w->setPalette(p);
    if (auto* d = qobject_cast<OptionDialog*>(w->window())) {
        if (UpDown* u = d->upDowns_.value(w))
            u->setEnabled(on);
    }
}

void OptionDialog::Rule(const QList<QWidget*>& sources, std::function<void()> apply)
{
    rules_.push_back(apply);
    auto run = [this, apply] {
        if (loaded_)
            apply();
    };
    for (QWidget* w : sources) {
        if (auto* b = qobject_cast<QAbstractButton*>(w))
            connect(b, &QAbstractButton::toggled, this, run);
        else if (auto* t = qobject_cast<QLineEdit*>(w))
            connect(t, &QLineEdit::textChanged, this, run);
        else if (auto* c = qobject_cast<QComboBox*>(w))
            connect(c, &QComboBox::currentIndexChanged, this, run);
        else if (auto* s = qobject_cast<QAbstractSlider*>(w))
            connect(s, &QAbstractSlider::valueChanged, this, run);
        else
            qFatal("Rule: %s has no change to follow", qPrintable(w->objectName()));
    }
}

void OptionDialog::Governs(QAbstractButton* check, const QList<QWidget*>& boxes)
{
    Rule({check}, [check, boxes] {
        for (QWidget* w : boxes)
            SetValueEnabled(w, check->isChecked());
    });
}

void OptionDialog::Clears(QAbstractButton* check, const QList<QAbstractButton*>& others)
{
    connect(check, &QAbstractButton::toggled, this, [others](bool on) {
        if (!on)
            return;
        for (QAbstractButton* b : others)
            b->setChecked(false);
    });
}

QHBoxLayout* OptionDialog::BoxRow(QLineEdit* box, QWidget* upDown, int width)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(1);
    box->setFixedWidth(width);
    row->addWidget(box);
    if (upDown)
        row->addWidget(upDown);
    return row;
}

QGridLayout* OptionDialog::Lines(const std::vector<Row>& rows, int perLine, int reserve,
                                 int captionWidth)
{
    auto* grid = new QGridLayout;
    auto has = [&rows](std::initializer_list<RowKind> kinds) {
        return std::any_of(rows.begin(), rows.end(), [kinds](const Row& r) {
            return std::find(kinds.begin(), kinds.end(), r.kind) != kinds.end();
        });
    };
    const bool sliders = has({RowKind::Slider});
    const bool fields = sliders || has({RowKind::Number, RowKind::Lead});
    // Sliders take the room of the line, fields leave it behind their unit. Of a flow, one
    // column takes the whole width, one line keeps its controls together at the left, and
    // several lines share the width among their columns.
    const auto placed = std::count_if(rows.begin(), rows.end(),
                                      [](const Row& r) { return r.kind != RowKind::Group; });
    const int stretch = sliders             ? 1
                        : fields            ? 3
                        : perLine == 1      ? 0
                        : placed <= perLine ? perLine
                                            : -1;
    int line = 0;
    int column = 0;
    auto endLine = [&] {
        if (column > 0) {
            ++line;
            column = 0;
        }
    };
    auto place = [&](QWidget* w) {
        if (fields) {
            grid->addWidget(w, line++, 0, 1, stretch == 3 ? 4 : 3);
            return;
        }
        grid->addWidget(w, line, column);
        if (++column == perLine)
            endLine();
    };
    auto caption = [&](const Row& r) {
        QLabel* l = Caption(QString::fromUtf8(r.caption),
                            r.captionName ? QString::fromUtf8(r.captionName) : QString());
        if (captionWidth > 0)
            l->setMinimumWidth(captionWidth);
        endLine();
        grid->addWidget(l, line, 0);
    };
    OptGroup* group = nullptr;
    for (const Row& r : rows) {
        const QString name = QString::fromUtf8(r.name);
        const QString text = QString::fromUtf8(r.caption);
        switch (r.kind) {
        case RowKind::Check:
            place(Check(name, r.index, text, r.elem));
            break;
        case RowKind::CheckNot:
            place(Check(name, r.index, text, r.elem, true));
            break;
        case RowKind::CheckSet:
            place(Check(name, r.index, text, r.elem, false, r.fallback));
            break;
        case RowKind::Group:
            group = &Group(r.elem, r.fallback);
            break;
        case RowKind::Option:
            place(group->Add(name, r.index, text));
            break;
        case RowKind::Number: {
            QLineEdit* box = Number(name, r.index, r.elem, r.limit, r.fallback, r.scale);
            UpDown* ud = AddUpDown(box, QStringLiteral("udn") + name.mid(3), r.index, r.minimum,
                                   static_cast<int>(r.limit), r.step);
            caption(r);
            grid->addLayout(BoxRow(box, ud, r.width), line, 1);
            if (r.unit)
                grid->addWidget(Caption(QString::fromUtf8(r.unit)), line, 2);
            ++line;
            break;
        }
        case RowKind::Slider: {
            QSlider* s =
                Slider(name, r.index, r.elem, r.minimum, static_cast<int>(r.limit), r.step);
            caption(r);
            grid->addWidget(s, line, 1);
            grid->addWidget(
                r.valueName ? ValueLabel(s, QString::fromUtf8(r.valueName), -1, r.format)
                            : ValueLabel(s, QStringLiteral("lbl") + name.mid(3), r.index, r.format),
                line, 2);
            ++line;
            break;
        }
        case RowKind::Lead:
            caption(r);
            grid->addWidget(ComboLead(name, r.index, r.items, r.elem, r.fallback), line, 1, 1, 2);
            ++line;
            break;
        }
    }
    endLine();
    // A flow that shares the width shares the height as well; the others keep to the top.
    if (stretch >= 0) {
        grid->setColumnStretch(stretch, 1);
        grid->setRowStretch(line + reserve, 1);
    }
    return grid;
}

bool OptionDialog::FilterNumberKey(QLineEdit* box, QKeyEvent* key)
{
    const QString text = key->text();
    if (text.isEmpty())
        return false; // keys that type nothing (arrows, Delete) are no key presses
    const QChar ch = text[0];
    if (key->key() == Qt::Key_Backspace || ch == QChar(8))
        return false;
    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
        return false; // focus movement, not typing
    if (key->key() == Qt::Key_Delete)
        return false; // an editing key that types no character, though it may carry DEL
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Escape)
        return false; // the dialog's OK and Cancel, as from any other control
    if (ch < QLatin1Char('0') || ch > QLatin1Char('9'))
        return true;
    // The digit is judged as if appended, wherever the insertion point stands.
    const double v = BoxNumber(box->text() + ch);
    return v > limits_.value(box);
}

bool OptionDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        // Ctrl+Tab (and Ctrl alone) moves to the next page, from the last to the first.
        if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::ControlModifier) {
            if (tbsOptions_->count() > 0)
                NextTab();
            return true;
        }
        if (auto* box = qobject_cast<QLineEdit*>(watched); box && limits_.contains(box))
            return FilterNumberKey(box, key);
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tv
