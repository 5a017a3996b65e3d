#include "support/Shell.h"

#include "core/Declaration.h"
#include "core/Errors.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

bool OpenDocument(const QString& target, const QString&, const QString&)
{
    const QUrl url = QFileInfo::exists(target) ? QUrl::fromLocalFile(target) : QUrl(target);
    return QDesktopServices::openUrl(url);
}

void Homepage_Click()
{
    skipFaults([] { OpenDocument(langText(76), {}, {}); });
}
