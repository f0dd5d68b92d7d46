// SPDX-License-Identifier: LGPL-2.1-or-later
// The stock action object without a database: the properties callers set by name.
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
}
