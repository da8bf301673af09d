#pragma once
// j80's files, shared by every title: ROMs, ROM4, FONT and DISK with their load addresses,
// the CRT and KEY files and the PEN directory. Edits the configuration's texts directly; a
// file that isn't there, or an obligatory one left empty, stops the store with a message.
#include <QDialog>

class QLineEdit;

namespace tv {

inline const QString kJ80RomBadCaption = QStringLiteral("ディレクトリ/ファイルが不正です");

class frmJ80Rom : public QDialog {
    Q_OBJECT
public:
    explicit frmJ80Rom(QWidget* parent = nullptr);

    // The boxes into the configuration in their order; false (told) at the first box that
    // can't be stored, which keeps its text and leaves that entry and the rest as they were.
    bool StoreRom();

private:
    QLineEdit* Box(const char* name, int width);
};

// Shows the dialog modally; returns when it is closed.
int ShowJ80Rom(QWidget* parent);

} // namespace tv
