#include "mainwindow/frmTitle.h"

#include "util/Globals.h"

#include <QCoreApplication>
#include <QFont>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QVersionNumber>

namespace tv {

QString frmTitle::VersionText(int major, int minor, int revision)
{
    QString v = QString::number(major) + QStringLiteral(".") + QString::number(minor);
    if (revision >= 1)
        v += QString::number(revision);
    return v + QStringLiteral("\n\n");
}

frmTitle::frmTitle(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmTitle"));
    setWindowTitle(QStringLiteral("TORVANE"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(420, 240);

    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::Box);
    frame->setLineWidth(2);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);

    auto* title = new QLabel(QStringLiteral("TORVANE"), frame);
    title->setObjectName(QStringLiteral("lblTitle"));
    QFont tf = title->font();
    tf.setPointSize(26);
    tf.setBold(true);
    title->setFont(tf);
    title->setAlignment(Qt::AlignCenter);

    auto* sub = new QLabel(QStringLiteral("PC-8x01 / FM-7 & FM77AV / X1 & X1Turbo!"), frame);
    sub->setObjectName(QStringLiteral("lblSub"));
    sub->setAlignment(Qt::AlignCenter);

    lblVer = new QLabel(frame);
    lblVer->setObjectName(QStringLiteral("lblVer"));
    lblVer->setAlignment(Qt::AlignRight | Qt::AlignTop);
    lblMsg1 = new QLabel(frame);
    lblMsg1->setObjectName(QStringLiteral("lblMsg1"));
    lblMsg2 = new QLabel(frame);
    lblMsg2->setObjectName(QStringLiteral("lblMsg2"));
    lblLstCap = new QLabel(frame);
    lblLstCap->setObjectName(QStringLiteral("lblLstCap"));
    lblLstKen = new QLabel(frame);
    lblLstKen->setObjectName(QStringLiteral("lblLstKen"));
    lblLstKen->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblMsg2->setText(QStringLiteral("Now Loading..."));

    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(16, 12, 16, 12);
    grid->addWidget(title, 0, 0, 1, 2);
    grid->addWidget(sub, 1, 0, 1, 2);
    grid->addWidget(lblVer, 2, 1);
    grid->setRowStretch(3, 1);
    grid->addWidget(lblMsg1, 4, 0, 1, 2);
    grid->addWidget(lblMsg2, 5, 0, 1, 2);
    grid->addWidget(lblLstCap, 6, 0);
    grid->addWidget(lblLstKen, 6, 1);

    const QVersionNumber v = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    lblVer->setText(VersionText(v.majorVersion(), v.minorVersion(), v.microVersion()));
    TitleClosed = 0;
}

frmTitle::~frmTitle()
{
    TitleClosed = 1;
}

} // namespace tv
