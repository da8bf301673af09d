#pragma once
// The about box.
#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tv {

class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    // The lines of txtContents, joined by CR LF.
    static QString ContentsText(int major, int minor);
    static const QString kWebPage;

    QLabel* picIcon;
    QLabel* lblTitle;
    QLabel* lblWebPage;
    QPlainTextEdit* txtContents;
    QPushButton* cmdOK;
};

} // namespace tv
