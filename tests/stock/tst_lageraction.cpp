// SPDX-License-Identifier: LGPL-2.1-or-later
// The stock action object without a database: its published properties and kind texts.
#include "lagercommon.h"

#include <QMetaProperty>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LagerAction, PublishesItsPropertiesUnderTheirNames)
{
    TCLagerAction action;
    const QMetaObject *meta = action.metaObject();
    QStringList names;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        names << QString::fromLatin1(meta->property(i).name());
    EXPECT_EQ(names, (QStringList{ u"Action"_s, u"Mode"_s, u"Tablename"_s, u"Linkvalue"_s, u"UseCharge"_s,
                                   u"Modulno"_s, u"idBelegnummer"_s, u"idBestellung"_s, u"idWareneingang"_s,
                                   u"idEingangsrechnung"_s, u"idausgabe"_s, u"LogActionDate"_s,
                                   u"EnableMultiStorage"_s }));

    // A fresh object adds to stock as a goods receipt, with no booking date set.
    EXPECT_EQ(action.property("Action").value<TCLagerActionType>(), latAdd);
    EXPECT_EQ(action.property("Mode").value<TCLagerModeType>(), lmtIn);
    EXPECT_FALSE(action.property("UseCharge").toBool());
    EXPECT_FALSE(action.property("EnableMultiStorage").toBool());
    EXPECT_EQ(action.property("LogActionDate").toDateTime(), QDateTime(QDate(1, 1, 1), QTime(0, 0)));

    // Properties write the fields the engine reads.
    action.setProperty("idausgabe", u"A-17"_s);
    action.setProperty("idEingangsrechnung", u"ER-3"_s);
    action.setProperty("Action", QVariant::fromValue(latResetSub));
    EXPECT_EQ(action.fidAusgabe, u"A-17"_s);
    EXPECT_EQ(action.fideingangsrechnung, u"ER-3"_s);
    EXPECT_EQ(action.fAction, latResetSub);
    EXPECT_EQ(int(latResetSub), 3);
    EXPECT_EQ(int(lmtStocktaking), 3);
}

TEST(LagerAction, KindTexts)
{
    const struct
    {
        TCLagerModeType mode;
        double amount;
        QString plain;
        QString withAmount;
    } cases[] = {
        { lmtIn, -1, u"Lager Eingang"_s, u"Lager Eingang"_s },
        { lmtOut, 5, u"Lager Ausgang"_s, u"Lager Ausgang"_s },
        { lmtCorrection, 0, u"Bestandskorrektur"_s, u"Bestandskorrektur (+)"_s },
        { lmtCorrection, 2.5, u"Bestandskorrektur"_s, u"Bestandskorrektur (+)"_s },
        { lmtCorrection, -0.5, u"Bestandskorrektur"_s, u"Bestandskorrektur (-)"_s },
        { lmtStocktaking, -3, u"Inventur"_s, u"Inventur"_s },
    };
    for (const auto &c : cases) {
        EXPECT_EQ(TCLagerAction::ModeAsString(c.mode), c.plain);
        EXPECT_EQ(TCLagerAction::ModeAsString(c.mode, c.amount), c.withAmount) << c.amount;
    }
    EXPECT_EQ(TCLagerAction::ModeAsString(TCLagerModeType(7)), QString());
}
