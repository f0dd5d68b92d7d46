// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "globals.h"
#include "inifile.h"
#include "scratchfiles.h"
#include "symbolspackcommon.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// A scratch application folder "app" and symbol folder "sym" with the database INI file beside
// them; the globals point there for the test.
class SymbolsTest : public ::testing::Test
{
public:
    static QStringList ids(const TLumSheetItemManager &manager)
    {
        QStringList result;
        for (int i = 0; i < manager.Count(); ++i)
            result << manager.Item(i)->Guid;
        return result;
    }

protected:
    void SetUp() override
    {
        ASSERT_TRUE(scratch.isValid());
        QDir(scratch.path()).mkpath(QStringLiteral("app/Bitmaps"));
        QDir(scratch.path()).mkpath(QStringLiteral("sym"));
        cApplicationPath = path(QStringLiteral("app"));
        cDatabaseIni = path(QStringLiteral("db.ini"));
        setting(QStringLiteral("SymbolPath"), path(QStringLiteral("sym/")));
    }
    void TearDown() override
    {
        cApplicationPath.clear();
        cDatabaseIni.clear();
    }
    QString path(const QString &relative) const { return scratch.filePath(relative); }
    void setting(const QString &key, const QString &value) const
    {
        TCIniFile(cDatabaseIni).WriteString(QStringLiteral("Lagekarte"), key, value);
    }
    // A small picture of one colour, written as the extension says unless a format is given.
    static QByteArray image(const QString &file, QColor colour = Qt::red, const char *format = nullptr)
    {
        QDir().mkpath(QFileInfo(file).path());
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(colour);
        EXPECT_TRUE(picture.save(file, format)) << file.toStdString();
        return kxtest::readFile(file);
    }
    // A pack whose items have the identifiers (German texts: name = identifier, category given)
    // and a blue picture.
    void pack(const QString &file, const QList<std::pair<QString, QString>> &items) const
    {
        const QByteArray png = image(path(QStringLiteral("blau.png")), Qt::blue);
        TItemSymbolManager symbols;
        for (const auto &[id, category] : items) {
            auto *item = symbols.CreateItem();
            item->Guid = id;
            item->ImageType = litPng;
            item->SetData(png);
            TTexts texts;
            texts.SetName(id);
            texts.SetCategory(category);
            item->Texts.Add(texts);
            symbols.AddItem(item);
        }
        symbols.SaveToFile(file);
    }

    QTemporaryDir scratch;
};
