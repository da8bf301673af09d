#pragma once
// frmSearch: finds a row of the title list by its displayed text, the title or the other
// columns, whole or from the start of the text, from the top or from the row after the
// selection, so that repeated searches walk through the hits. It never touches the catalogue.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tv {

class CatalogueUi;

class frmSearch : public QDialog {
    Q_OBJECT
public:
    frmSearch(CatalogueUi* catalogue, QWidget* parent = nullptr);

    QLineEdit* txtFindText;
    QRadioButton* optTSerch;
    QRadioButton* optGMSerch;
    QRadioButton* optSelectSerch;
    QRadioButton* optTopSerch;
    QCheckBox* chkMatch;
    QPushButton* cmdSerch;
    QPushButton* cmdCancel;
    QPushButton* cmdHelpContext;

    // Selects the next hit and shows it; nothing for a blank text or no hit. The row found,
    // or -1.
    int cmdSerch_Click();

private:
    CatalogueUi* catalogue_;
};

} // namespace tv
