#include "screenshots.h"

#include "demodata.h"
#include "frmmandantencommon.h"
#include "importcommonform.h"
#include "katscommon.h"
#include "katscommonform.h"
#include "tcdbtreeview.h"
#include "tcedit.h"
#include "tcselecttomask.h"
#include "vehiclemask.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QTreeWidget>
#include <QTextStream>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Lets pending layout and paint events run so that a grab shows the finished window.
void settle(QWidget *widget)
{
    widget->show();
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

// A window frame with its title around a grabbed window, so that the picture reads as a window.
QPixmap framed(QWidget *window)
{
    const QPixmap content = window->grab();
    const int title = 26;
    QPixmap result(content.width() + 2, content.height() + title + 1);
    result.fill(QColor(0x5A, 0x5A, 0x5A));
    QPainter painter(&result);
    painter.fillRect(1, 1, content.width(), title - 1, QColor(0x3C, 0x4A, 0x5C));
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(10, 1, content.width() - 20, title - 1), Qt::AlignVCenter | Qt::AlignLeft,
                     window->windowTitle());
    painter.drawPixmap(1, title, content);
    return result;
}

bool save(const QPixmap &picture, const QString &folder, const QString &name)
{
    const QString path = QDir(folder).filePath(name + u".png"_s);
    const bool ok = picture.save(path);
    QTextStream(ok ? stdout : stderr) << (ok ? "geschrieben: " : "nicht geschrieben: ") << path << Qt::endl;
    return ok;
}

bool katsForm(const QString &folder)
{
    TKatsCommonForm *form = Kats_Init(demoModule);
    form->KatsTree->BuildTreeComplett();
    form->KatsTree->LoadCheckState(demoVehicle, demoModule);
    settle(form);
    const bool ok = save(framed(form), folder, u"TKatsCommonForm"_s);
    Kats_DeInit(form);
    return ok;
}

bool tenantFrame(const QString &folder)
{
    VehicleMask mask;
    mask.Mandanten->Mandant->setFocus();
    settle(&mask);
    const QPixmap maskPicture = framed(&mask);
    std::unique_ptr<TCSelectDialog> dialog(
        mask.Mandanten->MandantSelect->CreateDialog(&mask, mask.Mandanten->Mandant->Text()));
    settle(dialog.get());
    const QPixmap dialogPicture = framed(dialog.get());
    // The selection opens over the mask, below its tenant field, as it does on the desktop.
    const QPoint at(40, mask.Mandanten->mapTo(&mask, QPoint(0, mask.Mandanten->height())).y() + 34);
    QPixmap picture(qMax(maskPicture.width(), at.x() + dialogPicture.width()) + 8,
                    qMax(maskPicture.height(), at.y() + dialogPicture.height()) + 8);
    picture.fill(QColor(0xE8, 0xE8, 0xE8));
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, maskPicture);
    painter.fillRect(QRect(at + QPoint(5, 5), dialogPicture.size()), QColor(0, 0, 0, 60));
    painter.drawPixmap(at, dialogPicture);
    painter.end();
    return save(picture, folder, u"TfrmMandanten"_s);
}

bool importForm(const QString &folder)
{
    std::unique_ptr<TImportCommonForm> form(createDemoImportForm(nullptr));
    settle(form.get());
    // As the user sees it after pairing: the street field and its column selected.
    form->DatabaseColumnDefinitionList->setCurrentItem(form->DatabaseColumnDefinitionList->topLevelItem(3));
    form->ImportDefinitionList->setCurrentItem(form->ImportDefinitionList->topLevelItem(3));
    settle(form.get());
    return save(framed(form.get()), folder, u"TImportCommonForm"_s);
}

} // namespace

int renderScreenshots(const QString &folder)
{
    QDir().mkpath(folder);
    int written = 0;
    for (bool (*render)(const QString &) : { katsForm, tenantFrame, importForm })
        written += render(folder) ? 1 : 0;
    return written;
}
