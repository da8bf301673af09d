#pragma once
// The image file selection: the start file, the further disks in order, or the manual among
// the members of an archive, or the order of one column of the file dialogs' filter list.
#include <QDialog>
#include <QListWidget>
#include <cstdint>

class QFrame;
class QLabel;
class QPushButton;

namespace tv {

// A list whose rows can be dragged to the other list of the pair, the row's text travelling.
class FileSelectList : public QListWidget {
    Q_OBJECT
public:
    explicit FileSelectList(QWidget* parent = nullptr);
    FileSelectList* partner = nullptr;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
};

class frmFileSelect : public QDialog {
    Q_OBJECT
public:
    // Mode 0 start file, 1 further disks, 2 filter order of column `Kind`, 3 manual. In the
    // modes 0, 1 and 3 `image` is the chosen image or archive and `startFile` the start file.
    frmFileSelect(uint8_t Mode, uint8_t Kind, const QString& image, const QString& startFile,
                  QWidget* parent = nullptr);

    // False when the dialog refused to open (bad WorkDir, an archive that can't be unpacked);
    // its box has been shown and WorkDir is as the refusal left it.
    bool ready() const { return ready_; }
    // The results of OK: the chosen name (modes 0, 3), the further disks joined by a blank
    // (mode 1), whether the metadata import found a text file (mode 0).
    QString chosen;
    QString secondFiles;
    bool imported = false;

    QLabel* lblTitle = nullptr;
    QLabel* lblRTitle = nullptr;
    FileSelectList* lstFileL = nullptr;
    FileSelectList* lstFileR = nullptr;
    QFrame* fraButton = nullptr;
    QPushButton* cmdRight = nullptr;
    QPushButton* cmdLeft = nullptr;
    QPushButton* cmdUp = nullptr;
    QPushButton* cmdDown = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    void cmdOK_Click();
    void cmdCancel_Click();
    // Cancel, the close box and Escape: WorkDir is emptied in the modes that used it.
    void reject() override;

private:
    void Move(QListWidget* from, QListWidget* to);
    void Shift(int by);

    uint8_t mode_;
    uint8_t kind_;
    QString image_;
    bool ready_ = false;
};

} // namespace tv
