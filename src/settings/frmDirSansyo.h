#pragma once
// The directory picker: a tree of the file system, the typed directory, and the creation of
// a directory that doesn't exist yet.
#include <QDialog>

class QComboBox;
class QFileSystemModel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace tv {

class frmDirSansyo : public QDialog {
    Q_OBJECT
public:
    explicit frmDirSansyo(QWidget* parent = nullptr);

    // Starts at `path` when it names an existing directory, else at the current directory.
    void Start(const QString& path);
    QString Result() const { return result_; }

    QComboBox* drvSansyo;
    QTreeView* dirSansyo;
    QLineEdit* txtSansyoDir;
    QPushButton *cmdOK, *cmdCancel, *cmdHelpContext;

    void cmdOK_Click();

protected:
    // dirSansyo_KeyPress: Enter or Space in the list takes the highlighted entry.
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void SetListPath(const QString& dir);
    void drvSansyo_Change();
    QFileSystemModel* model_;
    QString result_;
    int lastDrive_ = 0;
    // The directory the tree is to open at; its parents are expanded as the model loads them.
    QString shownPath_;
    void revealShownPath();
};

// Shows the picker modally; on OK `path` takes the chosen directory and true is returned, on
// cancel `path` keeps its value.
bool InitDirSansyo(QString& path, QWidget* owner = nullptr);

} // namespace tv
