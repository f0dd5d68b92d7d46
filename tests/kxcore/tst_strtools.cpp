// SPDX-License-Identifier: LGPL-2.1-or-later
#include "globals.h"
#include "msgdlg.h"
#include "strtools.h"
#include "testdatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(StrTools, StrToBool)
{
    for (const QString &yes : { u"1"_s, u"-1"_s, u"t"_s, u"True"_s, u"J"_s, u"ja"_s, u"Y"_s, u"yes"_s, u" WAHR "_s })
        EXPECT_TRUE(hStrToBool(yes)) << yes.toStdString();
    for (const QString &no : { u""_s, u"0"_s, u"F"_s, u"false"_s, u"nein"_s, u"2"_s, u"x"_s })
        EXPECT_FALSE(hStrToBool(no)) << no.toStdString();
}

TEST(StrTools, StrToInt)
{
    for (const auto &[text, fallback, value] : { std::tuple{ u"42"_s, 0, 42 }, { u" -7 "_s, 0, -7 }, { u"0002"_s, 0, 2 },
                                                 { u"4,5"_s, 9, 9 }, { u""_s, 0, 0 }, { u"99999999999"_s, -1, -1 } })
        EXPECT_EQ(hStrToInt(text, fallback), value) << text.toStdString();
}

TEST(StrTools, FileFromSearchPath)
{
    QTemporaryDir first, second;
    QFile(second.filePath(u"Vorlage Ä.docx"_s)).open(QIODevice::WriteOnly);
    const QStringList saved = cSearchPathList;
    cSearchPathList = { QString(), first.path(), second.path() };
    EXPECT_EQ(GetFileFromSearchPath(u"Vorlage Ä.docx"_s), QDir(second.path()).absoluteFilePath(u"Vorlage Ä.docx"_s));
    EXPECT_EQ(GetFileFromSearchPath(u"fehlt.docx"_s), QString());
    EXPECT_EQ(GetFileFromSearchPath(QString()), QString());
    EXPECT_EQ(GetFileFromSearchPath(second.filePath(u"Vorlage Ä.docx"_s)),
              QDir(second.path()).absoluteFilePath(u"Vorlage Ä.docx"_s));
    // A relative name never leads out of its search folder.
    QDir(second.path()).mkdir(u"Unterordner"_s);
    cSearchPathList = { QDir(second.path()).filePath(u"Unterordner"_s) };
    EXPECT_EQ(GetFileFromSearchPath(u"../Vorlage Ä.docx"_s), QString());
    EXPECT_EQ(GetFileFromSearchPath(u"../../../../../../../../etc/passwd"_s), QString());
    cSearchPathList = saved;
}

TEST(MsgDlg, HandlerIsReplaceable)
{
    QStringList shown;
    const MsgDlgHandler previous = setMsgDlgHandler([&](const QString &text, TMsgDlgType, unsigned, int) {
        shown << text;
        return int(mrNo);
    });
    EXPECT_EQ(MsgDlg(u"Import abbrechen?"_s, TMsgDlgType::mtConfirmation, mbYesNo), mrNo);
    EXPECT_EQ(shown, QStringList{ u"Import abbrechen?"_s });
    setMsgDlgHandler(nullptr);
    // Without a handler the first offered of Yes/OK/... is the answer.
    EXPECT_EQ(MsgDlg(u"Hinweis"_s, TMsgDlgType::mtInformation, mbOK), mrOk);
    EXPECT_EQ(MsgDlg(u"Frage"_s, TMsgDlgType::mtConfirmation, mbYesNoCancel), mrYes);
    setMsgDlgHandler(previous);
}

} // namespace
