// The checks of the environment settings, in their order, and the re-read of a closed dialog.
#include "startup/StartupFixture.h"
#include "startup/ValidateCfg.h"
#include "support/ScriptedMsgBox.h"

using namespace tv;
using namespace tvtest;

namespace {

class ValidateCfgTest : public StartupTest {
protected:
    CfgRecord c;
    QString good; // an existing directory outside TMP and TEMP

    void SetUp() override
    {
        StartupTest::SetUp();
        EnvTmpDir = tmp;
        EnvTempDir = temp;
        WindowsDir = "/etc";
        SystemDir = "/usr";
        PeekDir = tmp + "/TORVBOOT";
        AppDir = app;
        SetDefaultCfg(c);
        good = root.path() + "/good";
        ASSERT_TRUE(QDir().mkpath(good));
    }
    // An emulator directory with its program in it.
    QString EmuDir(const QString& name, const QString& exe)
    {
        const QString d = root.path() + "/" + name;
        QDir().mkpath(d);
        WriteFile(d + "/" + exe, "MZ");
        return d;
    }
    // The one message the check gives, or "" when it passes.
    QString Check()
    {
        ScriptedMsgBox boxes;
        const bool ok = ValidateCfg(c);
        EXPECT_EQ(ok, boxes.calls().empty());
        EXPECT_LE(boxes.calls().size(), 1u);
        if (boxes.calls().empty())
            return QString();
        EXPECT_EQ(boxes.calls()[0].flags, 48);
        lastCaption = boxes.calls()[0].caption;
        return boxes.calls()[0].text;
    }
    QString lastCaption;
    const QString bad = "/nonexistent/dir";
};

} // namespace

TEST_F(ValidateCfgTest, DefaultsPassWithBlankDirectories)
{
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, FamilyDirectoriesInTheirOrder)
{
    c.ImageDir[2] = bad;
    c.SnapDir[0] = bad;
    c.PatSaveDir[1] = bad;
    c.ManDir[0] = bad;
    EXPECT_EQ(
        Check(),
        "X1 & X1Turbo!用のｲﾒｰｼﾞﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n正しいﾃﾞｨﾚｸﾄﾘを設定し直してください");
    EXPECT_EQ(lastCaption, "ｲﾒｰｼﾞﾌｧｲﾙﾃﾞｨﾚｸﾄﾘが不正");
    c.ImageDir[2] = good;
    EXPECT_EQ(
        Check(),
        "PC-8x01用のScreenShot&生成ﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n正しいﾃﾞｨﾚｸﾄﾘを設定し直してください");
    EXPECT_EQ(lastCaption, "ScreenShotﾃﾞｨﾚｸﾄﾘが不正");
    c.SnapDir[0] = "  ";
    EXPECT_EQ(Check(),
              "FM-7 & FM77AV用のPATﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n正しいﾃﾞｨﾚｸﾄﾘを設定し直してください");
    EXPECT_EQ(lastCaption, "PAT用ﾃﾞｨﾚｸﾄﾘが不正");
    c.PatSaveDir[1] = good;
    EXPECT_EQ(Check(),
              "PC-8x01用のﾏﾆｭｱﾙﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n正しいﾃﾞｨﾚｸﾄﾘを設定し直してください");
    EXPECT_EQ(lastCaption, "MANUAL用ﾃﾞｨﾚｸﾄﾘが不正");
    c.ManDir[0] = good;
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, DirectoryUnderTmpIsRefused)
{
    c.ImageDir[0] = tmp;
    EXPECT_TRUE(Check().startsWith("PC-8x01用のｲﾒｰｼﾞﾌｧｲﾙ"));
}

TEST_F(ValidateCfgTest, SaveDirectoriesBeforeSnapAndAfterImage)
{
    c.P88srUse = 1;
    c.P88SaveDir = bad;
    c.ImageDir[0] = bad;
    EXPECT_TRUE(Check().contains("ｲﾒｰｼﾞﾌｧｲﾙ"));
    c.ImageDir[0] = good;
    c.SnapDir[0] = bad;
    EXPECT_EQ(Check(), "P88SR Saveディレクトリが不正です。修正して下さい！");
    c.P88SaveDir = good;
    c.SnapDir[0] = good;
    c.P88srDir = EmuDir("p88", "P88SR.EXE");
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, M88SaveDirectoryIsComparedInTheSnapLoop)
{
    c.M88Use = 1;
    c.M88Dir = EmuDir("m88", "M88.EXE");
    c.M88SaveDir = c.M88Dir.toUpper() == c.M88Dir ? c.M88Dir.toLower() : c.M88Dir.toUpper();
    c.SnapDir[1] = bad;
    EXPECT_EQ(Check(), "M88SaveディレクトリとM88実行ディレクトリが同一です。修正して下さい！");
    c.M88SaveDir = bad;
    EXPECT_EQ(Check(), "M88 Saveディレクトリが不正です。修正して下さい！");
    c.M88SaveDir = good;
    EXPECT_TRUE(Check().startsWith("FM-7 & FM77AV用のScreenShot"));
    c.SnapDir[1] = "";
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, EmulatorSaveDirectoriesOnlyWhenInUse)
{
    c.QUASI88SaveDir = c.Xm7DosSaveDir = c.Xm7WinSaveDir = c.XmilSaveDir = c.WinX1SaveDir = bad;
    EXPECT_EQ(Check(), QString());
    c.WinX1Use = 1;
    c.XmilUse = 1;
    EXPECT_EQ(Check(), "Xmillenium Saveディレクトリが不正です。修正して下さい！");
    c.XmilSaveDir = good;
    EXPECT_EQ(Check(), "WinX1Ika Saveディレクトリが不正です。修正して下さい！");
    c.WinX1Use = c.XmilUse = 0;
    c.QUASI88Use = 1;
    EXPECT_EQ(Check(), "QUASI88 Saveディレクトリが不正です。修正して下さい！");
    c.QUASI88Use = 0;
    c.Xm7DosUse = 1;
    EXPECT_EQ(Check(), "XM7dos Saveディレクトリが不正です。修正して下さい！");
    c.Xm7DosUse = 0;
    c.Xm7WinUse = 1;
    EXPECT_EQ(Check(), "XM7Win Saveディレクトリが不正です。修正して下さい！");
}

TEST_F(ValidateCfgTest, FmPanFileOnlyWithTheFlag)
{
    c.FmPanFile = root.path() + "/FMPAN.D88";
    EXPECT_EQ(Check(), QString());
    c.PanUse = 1;
    EXPECT_EQ(Check(), "FMPAN.D88ﾌｧｲﾙが不正です！");
    WriteFile(c.FmPanFile, "d88");
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, CfgChkWithoutUseNeedsNoDirectory)
{
    c.Xm7WinCfgChk = 1;
    c.Xm7WinDir = bad;
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, EveryEmulatorInTheOrderOfTheTable)
{
    c.P88srUse = c.M88Use = c.PC88WinUse = c.X88kUse = c.QUASI88Use = c.J80Use = 1;
    c.Xm7DosUse = c.Xm7WinUse = c.Em7WinUse = c.X1rUse = c.XmilUse = c.X1emuUse = c.WinX1Use = 1;
    const struct {
        QString CfgRecord::*dir;
        const char* exe;
        const char* msg;
    } rows[] = {
        {&CfgRecord::P88srDir, "P88SR.EXE", "P88SRの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::M88Dir, "M88.EXE", "M88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::PC88WinDir, "PC88WIN.EXE", "PC88Winの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::X88kDir, "X88000.EXE", "X88000の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::QUASI88Dir, "QUASI88.EXE", "QUASI88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::J80Dir, "j80.jar", "j80の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::Xm7DosDir, "XM7.EXE", "XM7 for Dosの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::Xm7WinDir, "XM7.EXE", "XM7 for Win32(V3.0)の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::Em7WinDir, "EM7.EXE", "EM7 for Win32の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::X1rDir, "X1R.COM", "X1EMU RealMode(X1R.COM)の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::XmilDir, "Xmillennium.exe", "X millennium の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::X1emuDir, "X1EMU.EXE", "X1EMU の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
        {&CfgRecord::WinX1Dir, "winx1.exe", "WinX1 の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    };
    int n = 0;
    for (const auto& r : rows) {
        EXPECT_EQ(Check(), QString::fromUtf8(r.msg));
        // A directory without the program still fails; with it the next row speaks.
        const QString d = root.path() + QStringLiteral("/emu%1").arg(n++);
        QDir().mkpath(d);
        c.*r.dir = d;
        EXPECT_EQ(Check(), QString::fromUtf8(r.msg));
        WriteFile(d + "/" + r.exe, "MZ");
        if (r.dir == &CfgRecord::J80Dir) {
            const char* files[] = {"j80のROMsファイルが不正です！", "j80のFONTファイルが不正です！",
                                   "j80のCRTファイルが不正です！", "j80のKEYファイルが不正です！"};
            QString CfgRecord::*fields[] = {&CfgRecord::J80RomsFile, &CfgRecord::J80FontFile,
                                            &CfgRecord::J80CrtFile, &CfgRecord::J80KeyFile};
            for (int i = 0; i < 4; ++i) {
                EXPECT_EQ(Check(), QString::fromUtf8(files[i]));
                c.*fields[i] = d + QStringLiteral("/f%1").arg(i);
                WriteFile(c.*fields[i], "rom");
            }
        }
    }
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, TTuneDirectoryMustDifferAndHoldTheProgram)
{
    c.XmilUse = 1;
    c.XmilDir = EmuDir("xmil", "Xmillennium.exe");
    c.XmilTDir = "  " + c.XmilDir.toUpper() + " ";
    // Any mixture of case that the comparison of trimmed texts finds equal is refused.
    EXPECT_EQ(Check(), "X millennium本体とT-Tune/Ika-Tuneは別ディレクトリに指定してください！");
    c.XmilTDir = root.path() + "/xmilt";
    QDir().mkpath(c.XmilTDir);
    EXPECT_EQ(Check(), "X millennium T-Tune/Ika-Tune用ﾃﾞｨﾚｸﾄﾘが不正です！");
    WriteFile(c.XmilTDir + "/Xmillennium.exe", "MZ");
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, WinX1LooksForThePlainProgramAlsoWithIka)
{
    c.WinX1Use = 1;
    c.WinX1IkaUse = 1;
    c.WinX1Dir = EmuDir("winx1", "WinX1_ika.exe");
    EXPECT_EQ(Check(), "WinX1 の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！");
    WriteFile(c.WinX1Dir + "/winx1.exe", "MZ");
    EXPECT_EQ(Check(), QString());
}

TEST_F(ValidateCfgTest, CancelReReadDropsChangesAndKeepsAValidFlag)
{
    SetDefaultCfg(Cfg);
    ASSERT_TRUE(SaveCfg(Cfg));
    CfgReady = 1;
    Cfg.CfgEmuOpt88.M88_1Op[0] = 7; // what an option dialog wrote into the default block
    Cfg.ImageDir[0] = bad;
    ScriptedMsgBox boxes;
    CfgDialogUnload(false);
    EXPECT_TRUE(boxes.calls().empty());
    EXPECT_EQ(Cfg.CfgEmuOpt88.M88_1Op[0], 49);
    EXPECT_EQ(Cfg.ImageDir[0].trimmed(), QString());
    EXPECT_EQ(ImageDir[0], app);
    EXPECT_EQ(CfgReady, 1);
}

TEST_F(ValidateCfgTest, CancelReReadOfAnInvalidFileTakesTheFlagDown)
{
    SetDefaultCfg(Cfg);
    Cfg.ManDir[2] = bad;
    ASSERT_TRUE(SaveCfg(Cfg));
    CfgReady = 1;
    ScriptedMsgBox boxes;
    CfgDialogUnload(false);
    EXPECT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(CfgReady, 0);
}

TEST_F(ValidateCfgTest, CancelWithNoFileKeepsTheDefaults)
{
    SetDefaultCfg(Cfg);
    Cfg.WinSendWait = 900;
    CfgDialogUnload(false);
    EXPECT_EQ(Cfg.WinSendWait, 900);
    EXPECT_EQ(CfgReady, 0);
}

TEST_F(ValidateCfgTest, OkReReadSetsTheFlagOnlyWithAGoodFile)
{
    SetDefaultCfg(Cfg);
    CfgDialogUnload(true);
    EXPECT_EQ(CfgReady, 0); // no file
    ASSERT_TRUE(SaveCfg(Cfg));
    CfgDialogUnload(true);
    EXPECT_EQ(CfgReady, 1);
}

TEST(SelectFilter, TitlesAndPatterns)
{
    EXPECT_EQ(kSelectFileTitle, "ファイルを選択して下さい。");
    EXPECT_EQ(SelectFileFilter(SelectKind::Xmil).display,
              "X millennium and T-Tune/ika-Tune(Xmillennium.exe)");
    EXPECT_EQ(SelectFileFilter(SelectKind::JavaVM).pattern, "java;javaw;java.exe;javaw.exe");
    EXPECT_EQ(QtFilterText(SelectFileFilter(SelectKind::M88)), "M88 (M88.EXE)");
    EXPECT_EQ(QtFilterText(SelectFileFilter(SelectKind::JavaVM)),
              "Sun JavaVM (java.exe,javaw.exe) (java javaw java.exe javaw.exe)");
    EXPECT_EQ(QtFilterText(SelectFileFilter(SelectKind::Picture)),
              "ピクチャ ファイル (*.png,*.jpg,*.bmp) (*.png *.jpg *.bmp *.PNG *.JPG *.BMP)");
    EXPECT_EQ(QtFilterText(SelectFileFilter(SelectKind::J80Font)), "j80 FONT File (*.FON)");
}

TEST(CfgPathLimit, MeasuredInShiftJisBytes)
{
    EXPECT_TRUE(FitsCfgPath(QString(256, 'a')));
    EXPECT_FALSE(FitsCfgPath(QString(257, 'a')));
    EXPECT_TRUE(FitsCfgPath(QString(128, QChar(0x3042))));  // 256 bytes
    EXPECT_FALSE(FitsCfgPath(QString(129, QChar(0x3042)))); // 258 bytes
    EXPECT_TRUE(FitsCfgPath(QString(256, 'a') + "   "));    // trimmed first
}

// The emulators come from a case-blind platform: a program installed as "m88.exe" is M88.EXE.
TEST_F(ValidateCfgTest, ProgramNamesAreFoundWhateverTheirCase)
{
    c.M88Use = 1;
    c.M88Dir = EmuDir("m88lower", "m88.exe");
    c.WinX1Use = 1;
    c.WinX1Dir = EmuDir("winx1upper", "WINX1.EXE");
    EXPECT_EQ(Check(), QString());
    QFile::remove(c.M88Dir + "/m88.exe");
    EXPECT_EQ(Check(), QStringLiteral("M88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
}
