// SPDX-License-Identifier: LGPL-2.1-or-later
#include "germantexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace kx::ui {

bool loadGermanQtTexts()
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!application)
        return false;
    // Per application object: a test program may create a new one after the last.
    static QPointer<QCoreApplication> loadedFor;
    if (loadedFor == application)
        return true;
    auto *translator = new QTranslator(application);
    if (!translator->load(QLocale(QLocale::German, QLocale::Germany), u"qtbase"_s, u"_"_s,
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    loadedFor = application;
    return true;
}

} // namespace kx::ui
