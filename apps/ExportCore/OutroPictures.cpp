// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutroPictures.h"

#include "Branding/OutroLength.h"
#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <algorithm>

namespace ExportCore {
namespace {

QString folder() {
    return QStringLiteral(":/BrandingOutro");
}

QString pathOf(const QString& name) {
    return folder() + QLatin1Char('/') + name + QStringLiteral("/outro.png");
}

std::string listed(const std::vector<std::string>& names) {
    return names.empty() ? "there are none" : "there are: " + NameList::joined(names);
}

} // namespace

std::vector<std::string> OutroPictures::names() {
    std::vector<std::string> found;
    for (const QString& name : QDir(folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (QFileInfo::exists(pathOf(name)))
            found.push_back(name.toStdString());
    }
    return found;
}

void OutroPictures::require(const QString& name) {
    if (name.isEmpty())
        return;
    const std::vector<std::string> known = names();
    if (std::find(known.begin(), known.end(), name.toStdString()) == known.end())
        KESTRA_THROW(Refusal("There is no outro \"" + name.toStdString() + "\"; " + listed(known) +
                             NearNames::question(name.toStdString(), known)));
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        KESTRA_THROW(Refusal("An outro needs an application that can show pictures"));
    // What the module could not read it would leave out without a word.
    QImageReader reader(pathOf(name));
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        KESTRA_THROW(
            Refusal("The outro \"" + name.toStdString() + "\" cannot be read: " + reader.errorString().toStdString()));
}

KTime OutroPictures::length(const QString& name) {
    if (name.isEmpty() || !QFileInfo::exists(pathOf(name)))
        return KTime(0);
    return OUTRO_LENGTH;
}

} // namespace ExportCore
