#pragma once
// The splash window of the start-up: the current step, the catalogue progress and the version.
#include <QWidget>

class QLabel;

namespace tv {

class frmTitle : public QWidget {
    Q_OBJECT
public:
    explicit frmTitle(QWidget* parent = nullptr);
    ~frmTitle() override;

    QLabel* lblMsg1;
    QLabel* lblMsg2;
    QLabel* lblLstCap;
    QLabel* lblLstKen;
    QLabel* lblVer;

    // Major "." minor, then the revision when it is at least 1, and two line breaks.
    static QString VersionText(int major, int minor, int revision);
};

} // namespace tv
