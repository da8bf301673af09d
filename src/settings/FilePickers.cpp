#include "settings/FilePickers.h"

#include "settings/frmDirSansyo.h"

#include <QFileDialog>

namespace tv {

namespace {

class DialogPickers final : public FilePickers {
public:
    QString SelectFile(SelectKind kind, QWidget* owner) override
    {
        return QFileDialog::getOpenFileName(owner, kSelectFileTitle, QString(),
                                            QtFilterText(SelectFileFilter(kind)));
    }
    bool PickDir(QString& path, QWidget* owner) override { return InitDirSansyo(path, owner); }
};

FilePickers* installed = nullptr;

} // namespace

FilePickers& Pickers()
{
    static DialogPickers dialogs;
    return installed ? *installed : dialogs;
}

FilePickers* InstallPickers(FilePickers* pickers)
{
    FilePickers* previous = installed;
    installed = pickers;
    return previous;
}

} // namespace tv
