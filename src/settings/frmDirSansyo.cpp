#include "settings/frmDirSansyo.h"

#include "util/Help.h"

#include "platform/MsgBox.h"
#include "util/DirSansyo.h"
#include "util/SubFunction.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace tv {

frmDirSansyo::frmDirSansyo(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmDirSansyo"));
    setWindowTitle(QStringLiteral("ディレクトリの参照"));
    setModal(true);
    resize(460, 420);

    drvSansyo = new QComboBox(this);
    drvSansyo->setObjectName(QStringLiteral("drvSansyo"));
    for (const QFileInfo& d : QDir::drives())
        drvSansyo->addItem(QDir::toNativeSeparators(d.absoluteFilePath()));

    model_ = new QFileSystemModel(this);
    model_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    model_->setRootPath(QDir::rootPath());
    dirSansyo = new QTreeView(this);
    dirSansyo->setObjectName(QStringLiteral("dirSansyo"));
    dirSansyo->setModel(model_);
    for (int c = 1; c < model_->columnCount(); ++c)
        dirSansyo->hideColumn(c);
    dirSansyo->header()->hide();
    dirSansyo->installEventFilter(this);

    auto* lbl = new QLabel(QStringLiteral("ディレクトリ"), this);
    txtSansyoDir = new QLineEdit(this);
    txtSansyoDir->setObjectName(QStringLiteral("txtSansyoDir"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("ｷｬﾝｾﾙ"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdHelpContext = new QPushButton(QStringLiteral("ﾍﾙﾌﾟ(&H)"), this);
    cmdHelpContext->setObjectName(QStringLiteral("cmdHelpContext"));
    connect(cmdHelpContext, &QPushButton::clicked, this, [] { ShowHelpTopic(kHelpDirSansyo); });

    auto* g = new QGridLayout(this);
    g->addWidget(drvSansyo, 0, 0, 1, 2);
    g->addWidget(dirSansyo, 1, 0, 1, 2);
    g->addWidget(lbl, 2, 0);
    g->addWidget(txtSansyoDir, 2, 1);
    auto* b = new QHBoxLayout;
    b->addWidget(cmdHelpContext);
    b->addStretch(1);
    b->addWidget(cmdOK);
    b->addWidget(cmdCancel);
    g->addLayout(b, 3, 0, 1, 2);
    g->setRowStretch(1, 1);

    connect(dirSansyo->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& cur) {
                if (cur.isValid())
                    txtSansyoDir->setText(QDir::toNativeSeparators(model_->filePath(cur)));
            });
    connect(model_, &QFileSystemModel::directoryLoaded, this, [this](const QString& loaded) {
        const QString target = QDir::cleanPath(shownPath_);
        const QString dir = QDir::cleanPath(loaded);
        if (!shownPath_.isEmpty() &&
            (target == dir || target.startsWith(dir.endsWith(u'/') ? dir : dir + u'/')))
            revealShownPath();
    });
    // A choice in the tree ends the opening at the given path.
    connect(dirSansyo, &QTreeView::clicked, this, [this] { shownPath_.clear(); });
    connect(drvSansyo, &QComboBox::currentIndexChanged, this, [this] { drvSansyo_Change(); });
    connect(cmdOK, &QPushButton::clicked, this, &frmDirSansyo::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDirSansyo::SetListPath(const QString& dir)
{
    shownPath_ = dir;
    revealShownPath();
    txtSansyoDir->setText(QDir::toNativeSeparators(dir));
}

// The model reads directories in the background: the path is opened again each time a
// directory on its way has been read, so the tree ends up expanded down to it.
void frmDirSansyo::revealShownPath()
{
    if (shownPath_.isEmpty())
        return;
    const QModelIndex idx = model_->index(shownPath_);
    if (!idx.isValid())
        return;
    for (QModelIndex p = idx.parent(); p.isValid(); p = p.parent())
        dirSansyo->expand(p);
    dirSansyo->expand(idx);
    if (dirSansyo->currentIndex() != idx)
        dirSansyo->setCurrentIndex(idx);
    dirSansyo->scrollTo(idx, QAbstractItemView::PositionAtCenter);
}

void frmDirSansyo::Start(const QString& path)
{
    const QString p = VbTrim(path);
    // A stored directory that has gone starts the picker at the current directory.
    if (!p.isEmpty() && !FindFile(p, kAttrDirectory).isEmpty())
        SetListPath(QDir(p).absolutePath());
    else
        SetListPath(QDir::currentPath());
}

void frmDirSansyo::drvSansyo_Change()
{
    const QString drive = drvSansyo->currentText();
    if (!QDir(drive).exists()) {
        MsgBox(QStringLiteral("ドライブが無効です"), MbExclamation);
        const QSignalBlocker block(drvSansyo);
        drvSansyo->setCurrentIndex(lastDrive_);
        return;
    }
    lastDrive_ = drvSansyo->currentIndex();
    SetListPath(drive);
}

bool frmDirSansyo::eventFilter(QObject* watched, QEvent* e)
{
    // Enter or Space in the tree takes the highlighted entry as the list's path. The tree
    // would use Space for its selection and leave Enter to the OK button: it gets neither.
    if (watched == dirSansyo && e->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(e)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            const QModelIndex cur = dirSansyo->currentIndex();
            if (cur.isValid()) {
                SetListPath(model_->filePath(cur));
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, e);
}

void frmDirSansyo::cmdOK_Click()
{
    QString dir;
    if (!DirSansyoAccept(txtSansyoDir->text(), dir))
        return;
    result_ = dir;
    accept();
}

bool InitDirSansyo(QString& path, QWidget* owner)
{
    frmDirSansyo dlg(owner);
    dlg.Start(path);
    if (dlg.exec() != QDialog::Accepted)
        return false;
    path = dlg.Result();
    return true;
}

} // namespace tv
