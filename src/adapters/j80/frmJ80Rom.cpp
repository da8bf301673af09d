#include "adapters/j80/frmJ80Rom.h"

#include "data/Cfg.h"
#include "platform/MsgBox.h"
#include "settings/FilePickers.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <algorithm>

namespace tv {

namespace {

// The upper-cased file name of a path typed with either separator.
QString UpperName(const QString& path)
{
    QString p = VbTrim(path);
    p.replace(u'\\', u'/');
    return p.mid(p.lastIndexOf(u'/') + 1).toUpper();
}

// The load address that a ROM file's name implies, or "" for a name j80 has no address for.
QString RomsAddressOf(const QString& name)
{
    return name == QLatin1String("PC88.ROM") ? QStringLiteral("16000") : QString();
}
QString Rom4AddressOf(const QString& name)
{
    if (name == QLatin1String("PC88.ROM"))
        return QStringLiteral("8000");
    for (const char* n : {"8801-N80.ROM", "N_12.ROM", "N_14.ROM", "N80_10.ROM", "N80_12.ROM"})
        if (name == QLatin1String(n))
            return QStringLiteral("6000");
    return QString();
}
QString DiskAddressOf(const QString& name)
{
    return name == QLatin1String("PC88.ROM") ? QStringLiteral("14000") : QString();
}

bool Told(const QString& text)
{
    MsgBox(text, MbExclamation, kJ80RomBadCaption);
    return false;
}

} // namespace

int ShowJ80Rom(QWidget* parent)
{
    frmJ80Rom dlg(parent);
    return dlg.exec();
}

QLineEdit* frmJ80Rom::Box(const char* name, int width)
{
    auto* e = new QLineEdit(this);
    e->setObjectName(QString::fromLatin1(name));
    e->setMinimumWidth(width);
    return e;
}

frmJ80Rom::frmJ80Rom(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmJ80Rom"));
    setWindowTitle(QStringLiteral("j80 ROM設定"));
    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("絶対パスでファイルを指定"), this), 0, 0, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("先頭アドレス(HEX)"), this), 0, 3, 1, 2);
    // An address is up to eight hexadecimal digits: anything else can't be typed.
    auto* hex = new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[0-9A-Fa-f]{0,8}")), this);
    struct Line {
        const char* caption;
        const char* file;
        const char* address; // or null
        const char* button;
        SelectKind kind;
        bool dir;
    };
    const Line lines[] = {
        {"ROMs", "txtJ80RomsFile", "txtJ80RomsAddress", "cmdJ80RomsFile", SelectKind::J80Rom,
         false},
        {"ROM4", "txtJ80Rom4File", "txtJ80Rom4Address", "cmdJ80Rom4File", SelectKind::J80Rom,
         false},
        {"FONT", "txtJ80FontFile", "txtJ80FontAddress", "cmdJ80FontFile", SelectKind::J80Font,
         false},
        {"DISK", "txtJ80DiskFile", "txtJ80DiskAddress", "cmdJ80DiskFile", SelectKind::J80Rom,
         false},
        {"CRT", "txtJ80CrtFile", nullptr, "cmdJ80CrtFile", SelectKind::J80Other, false},
        {"KEY", "txtJ80KeyFile", nullptr, "cmdJ80KeyFile", SelectKind::J80Other, false},
        {"PEN", "txtJ80PenDir", nullptr, "cmdJ80PenDir", SelectKind::J80Other, true},
    };
    int row = 1;
    for (const Line& l : lines) {
        grid->addWidget(new QLabel(QString::fromLatin1(l.caption), this), row, 0);
        QLineEdit* file = Box(l.file, 320);
        file->setMaxLength(256);
        grid->addWidget(file, row, 1);
        auto* browse = new QPushButton(QStringLiteral("..."), this);
        browse->setObjectName(QString::fromLatin1(l.button));
        browse->setAutoDefault(false);
        // Narrow, but never narrower than the style needs to show "..." whole.
        browse->setFixedWidth(std::max(32, browse->minimumSizeHint().width()));
        grid->addWidget(browse, row, 2);
        const bool dir = l.dir;
        const SelectKind kind = l.kind;
        connect(browse, &QPushButton::clicked, this, [this, file, dir, kind] {
            if (dir) {
                QString path = file->text();
                if (Pickers().PickDir(path, this))
                    file->setText(path);
                return;
            }
            const QString chosen = Pickers().SelectFile(kind, this);
            if (!chosen.isEmpty())
                file->setText(chosen);
        });
        if (l.address) {
            grid->addWidget(new QLabel(QStringLiteral("0x"), this), row, 3);
            QLineEdit* address = Box(l.address, 80);
            address->setMaxLength(8);
            address->setValidator(hex);
            grid->addWidget(address, row, 4);
        }
        ++row;
    }
    auto* box = new QGroupBox(QStringLiteral("j80 ROMファイルを指定"), this);
    box->setLayout(grid);

    // Loaded before the name rules are connected, so that the stored addresses stand.
    auto set = [this](const char* name, const QString& text) {
        findChild<QLineEdit*>(QString::fromLatin1(name))->setText(VbTrim(text));
    };
    set("txtJ80RomsFile", Cfg.J80RomsFile);
    set("txtJ80RomsAddress", Cfg.J80RomsAddress);
    set("txtJ80Rom4File", Cfg.J80Rom4File);
    set("txtJ80Rom4Address", Cfg.J80Rom4Address);
    set("txtJ80FontFile", Cfg.J80FontFile);
    set("txtJ80FontAddress", Cfg.J80FontAddress);
    set("txtJ80DiskFile", Cfg.J80DiskFile);
    set("txtJ80DiskAddress", Cfg.J80DiskAddress);
    set("txtJ80CrtFile", Cfg.J80CrtFile);
    set("txtJ80KeyFile", Cfg.J80KeyFile);
    set("txtJ80PenDir", Cfg.J80PenDir);

    // A file typed or chosen sets its address from the file's name at once.
    auto follow = [this](const char* file, const char* address,
                         std::function<QString(const QString&)> rule) {
        QLineEdit* a = findChild<QLineEdit*>(QString::fromLatin1(address));
        connect(findChild<QLineEdit*>(QString::fromLatin1(file)), &QLineEdit::textChanged, a,
                [a, rule](const QString& t) { a->setText(rule(UpperName(t))); });
    };
    follow("txtJ80RomsFile", "txtJ80RomsAddress", RomsAddressOf);
    follow("txtJ80Rom4File", "txtJ80Rom4Address", Rom4AddressOf);
    follow("txtJ80FontFile", "txtJ80FontAddress", [](const QString&) { return QString(); });
    follow("txtJ80DiskFile", "txtJ80DiskAddress", DiskAddressOf);

    auto* cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    auto* cmdCancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);
    auto* cmdApply = new QPushButton(QStringLiteral("適用(&A)"), this);
    cmdApply->setObjectName(QStringLiteral("cmdApply"));
    cmdApply->setAutoDefault(false);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (StoreRom())
            accept();
    });
    connect(cmdApply, &QPushButton::clicked, this, [this] { StoreRom(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdApply);
    auto* v = new QVBoxLayout(this);
    v->addWidget(box);
    v->addLayout(buttons);
}

bool frmJ80Rom::StoreRom()
{
    auto text = [this](const char* name) {
        return VbTrim(findChild<QLineEdit*>(QString::fromLatin1(name))->text());
    };
    // A file that must be there: the path, or the refusal with its message.
    auto file = [](const QString& path, bool optional, const char* missing,
                   const char* empty) -> bool {
        if (path.isEmpty())
            return optional || Told(QString::fromUtf8(empty));
        if (FindFile(path).isEmpty())
            return Told(QString::fromUtf8(missing));
        return true;
    };

    const QString roms = text("txtJ80RomsFile");
    if (!file(roms, false, "ROMsファイルが存在しません。", "ROMsファイルは省略できません。"))
        return false;
    Cfg.J80RomsFile = roms;
    Cfg.J80RomsAddress = text("txtJ80RomsAddress");

    const QString rom4 = text("txtJ80Rom4File");
    if (!file(rom4, true, "ROM4ファイルが存在しません。", ""))
        return false;
    Cfg.J80Rom4File = rom4;
    Cfg.J80Rom4Address = text("txtJ80Rom4Address");

    const QString font = text("txtJ80FontFile");
    if (!file(font, false, "FONTファイルが存在しません。", "FONTファイルは省略できません。"))
        return false;
    Cfg.J80FontFile = font;
    Cfg.J80FontAddress = text("txtJ80FontAddress");

    const QString disk = text("txtJ80DiskFile");
    if (!file(disk, true, "DISKファイルが存在しません。", ""))
        return false;
    Cfg.J80DiskFile = disk;
    Cfg.J80DiskAddress = text("txtJ80DiskAddress");

    const QString crt = text("txtJ80CrtFile");
    if (!file(crt, false, "CRTファイルが存在しません。", "CRTファイルは省略できません。"))
        return false;
    Cfg.J80CrtFile = crt;

    const QString key = text("txtJ80KeyFile");
    if (!file(key, false, "KEYファイルが存在しません。", "KEYファイルは省略できません。"))
        return false;
    Cfg.J80KeyFile = key;

    const QString pen = text("txtJ80PenDir");
    if (!pen.isEmpty() && !QFileInfo(pen).isDir())
        return Told(QStringLiteral("PENディレクトリが存在しません。"));
    Cfg.J80PenDir = pen;
    return true;
}

} // namespace tv
