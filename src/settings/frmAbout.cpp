#include "settings/frmAbout.h"

#include "platform/Shell.h"
#include <QCoreApplication>

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QUrl>
#include <QVersionNumber>

namespace tv {

const QString frmAbout::kWebPage = QStringLiteral("https://torvane.example.org/");

QString frmAbout::ContentsText(int major, int minor)
{
    const QStringList lines = {
        QStringLiteral("TORVANE Ver %1.%2").arg(major).arg(minor),
        QStringLiteral("PC-8801・FM-7・X1 のソフトウェアのカタログ兼エミュレータランチャ"),
        QStringLiteral("Linux / Qt 6 版"),
        QStringLiteral("Copyright (C) TORVANE developers"),
        QStringLiteral("mail: torvane@example.org"),
    };
    return lines.join(QStringLiteral("\r\n"));
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("ﾊﾞｰｼﾞｮﾝ情報"));
    setModal(true);

    picIcon = new QLabel(this);
    picIcon->setObjectName(QStringLiteral("picIcon"));
    picIcon->setPixmap(style()->standardIcon(QStyle::SP_ComputerIcon).pixmap(48, 48));
    lblTitle = new QLabel(QStringLiteral("TORVANE"), this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    QFont f = lblTitle->font();
    f.setPointSize(16);
    f.setBold(true);
    lblTitle->setFont(f);
    lblWebPage = new QLabel(this);
    lblWebPage->setObjectName(QStringLiteral("lblWebPage"));
    lblWebPage->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(kWebPage));
    // A click opens the address with the desktop's handler.
    lblWebPage->setTextInteractionFlags(Qt::LinksAccessibleByMouse);
    connect(lblWebPage, &QLabel::linkActivated, this,
            [](const QString& url) { OpenUrl(QUrl(url)); });
    txtContents = new QPlainTextEdit(this);
    txtContents->setObjectName(QStringLiteral("txtContents"));
    txtContents->setReadOnly(true);
    const QVersionNumber v = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    txtContents->setPlainText(ContentsText(v.majorVersion(), v.minorVersion()));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    auto* g = new QGridLayout(this);
    g->addWidget(picIcon, 0, 0, 2, 1, Qt::AlignTop);
    g->addWidget(lblTitle, 0, 1);
    g->addWidget(lblWebPage, 1, 1);
    g->addWidget(txtContents, 2, 0, 1, 2);
    g->addWidget(cmdOK, 3, 1, Qt::AlignRight);
    resize(460, 260);
}

} // namespace tv
