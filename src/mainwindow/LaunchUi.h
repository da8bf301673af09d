#pragma once
// The launch on the main window: the emulator buttons, their menu entries and Enter (or a
// double-click, when so set) in lstD88 start RunSelectedItem. What the launch needs of the
// window (selection, status text, minimise, disable, restore, detail refresh) it asks of the
// window link, which frmMain implements.
// A button whose road can't run yet stays disabled, with a tooltip that says why.
#include <QObject>
#include <QString>

class QAction;
class QPushButton;
class QTableView;

namespace tv {

class CatalogueUi;

class LaunchUi : public QObject {
    Q_OBJECT
public:
    LaunchUi(CatalogueUi* catalogue, QTableView* lstD88, QObject* parent = nullptr);
    ~LaunchUi() override;

    // cmdEmuRun_Click and its menu entries.
    void cmdEmuRun_Click(int emuCode);
    // Key 13 on the list: the title's default emulator, when its button is enabled.
    void lstD88_KeyPress(int keyAscii);
    void lstD88_DblClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Keeps a button and its menu entries disabled while a title is selected and the road
    // of its emulator can't run; tells why in the tooltip.
    void gateButton(int emuCode, QPushButton* button);
    void gateAction(int entry, QAction* action);
    bool hasSelection() const;

    CatalogueUi* catalogue_;
    QTableView* lstD88_;
    bool gating_ = false;
};

} // namespace tv
