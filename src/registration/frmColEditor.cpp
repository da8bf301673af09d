#include "registration/frmColEditor.h"

#include "data/Cfg.h"
#include "data/SideList.h"
#include "util/SubFunction.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace tv {

frmColEditor::frmColEditor(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmColEditor"));
    setWindowTitle(QStringLiteral("カラム編集"));
    auto* grid = new QGridLayout;
    const QString captions[kSideListCount] = {QStringLiteral("Genre"), QStringLiteral("Maker"),
                                              QString(), QString(), QStringLiteral("Sale Date")};
    for (int k = 0; k < kSideListCount; ++k) {
        QLabel* label = new QLabel(captions[k], this);
        if (k == 2) {
            lblFreeColName1 = label;
            label->setObjectName(QStringLiteral("lblFreeColName1"));
            label->setText(VbTrim(Cfg.FreeColName1));
        } else if (k == 3) {
            lblFreeColName2 = label;
            label->setObjectName(QStringLiteral("lblFreeColName2"));
            label->setText(VbTrim(Cfg.FreeColName2));
        }
        auto* combo = new QComboBox(this);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setObjectName(QStringLiteral("cbxColFile(%1)").arg(k));
        combo->setMinimumWidth(240);
        cbxColFile[size_t(k)] = combo;
        connect(combo->lineEdit(), &QLineEdit::textEdited, this,
                [this, k] { cbxColFile_Change(k); });
        grid->addWidget(label, k, 0);
        grid->addWidget(combo, k, 1);
        for (int b = 0; b < 2; ++b) {
            const int index = 2 * k + b;
            auto* button =
                new QPushButton(b == 0 ? QStringLiteral("追加") : QStringLiteral("削除"), this);
            button->setObjectName(QStringLiteral("cmdColFile(%1)").arg(index));
            button->setAutoDefault(false);
            connect(button, &QPushButton::clicked, this,
                    [this, index] { cmdColFile_Click(index); });
            cmdColFile[size_t(index)] = button;
            grid->addWidget(button, k, 2 + b);
        }
        FillList(k);
    }
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setAutoDefault(false);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(bottom);
}

void frmColEditor::FillList(int kind)
{
    QComboBox* combo = cbxColFile[size_t(kind)];
    const QSignalBlocker block(combo);
    const QString text = combo->currentText();
    combo->clear();
    combo->addItems(LoadSideList(kind));
    combo->setEditText(text);
}

void frmColEditor::cmdColFile_Click(int index)
{
    const int kind = index / 2;
    const QString text = cbxColFile[size_t(kind)]->currentText();
    if (index % 2 == 0) {
        AddSideItem(kind, text);
    } else {
        RemoveSideItem(kind, text);
    }
    FillList(kind);
}

void frmColEditor::cbxColFile_Change(int kind)
{
    QLineEdit* edit = cbxColFile[size_t(kind)]->lineEdit();
    const int width = GetListInfo(kind).width;
    const QString fitted = FitText(edit->text(), width, 1, width);
    if (fitted != edit->text()) {
        const int cursor = edit->cursorPosition();
        edit->setText(fitted);
        edit->setCursorPosition(std::min<int>(cursor, int(fitted.size())));
    }
}

} // namespace tv
