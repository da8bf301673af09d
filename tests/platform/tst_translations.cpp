// The toolkit's own texts in Japanese: a standard button of a dialog says "キャンセル" once the
// translations are installed, and a directory without them is told, not a crash.
#include "platform/Translations.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

class TstTranslations : public QObject {
    Q_OBJECT
private slots:
    void missingTranslationsAreToldAndChangeNothing()
    {
        QTemporaryDir empty;
        QVERIFY(!tv::InstallQtJapanese(*QCoreApplication::instance(), empty.path()));
        QDialogButtonBox box(QDialogButtonBox::Cancel);
        QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Cancel"));
    }

    void standardButtonsSpeakJapanese()
    {
        QVERIFY(tv::InstallQtJapanese(*QCoreApplication::instance()));
        QDialogButtonBox box(QDialogButtonBox::Cancel);
        QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("キャンセル"));
    }
};

QTEST_MAIN(TstTranslations)
#include "tst_translations.moc"
