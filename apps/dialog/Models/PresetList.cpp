// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/PresetList.h"

#include "Export/PresetProvider.h"
#include "ExportCore/PresetCatalogue.h"
#include "dialog/Models/PlainTip.h"
#include "dialog/Models/PresetObstacle.h"
#include "dialog/Models/PresetText.h"
#include <algorithm>

namespace Dialog {

PresetList::PresetList(const Export::PresetProvider& provider, const ExportCore::PresetCatalogue& catalogue,
                       const SourceMedia& source, QObject* parent)
    : QSortFilterProxyModel(parent)
    , catalogue(catalogue)
    , source(source) {
    readTexts();
    setSourceModel(provider.model());
}

// The provider tells of the selected preset alone.
void PresetList::readTexts() {
    texts.clear();
    for (const std::string& id : catalogue.ids()) {
        const Preset preset = catalogue.preset(id);
        texts.insert(QString::fromStdString(id),
                     {PresetText::title(preset), PresetText::facts(preset), PresetObstacle::of(preset, source)});
    }
}

const PresetList::Texts& PresetList::textsOf(const QString& id) const {
    static const auto& none = *new Texts;
    const auto found = texts.constFind(id);
    return found == texts.constEnd() ? none : *found;
}

void PresetList::search(const QString& text) {
    words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

void PresetList::refresh() {
    readTexts();
    invalidateFilter();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

QVariant PresetList::data(const QModelIndex& index, int role) const {
    const Texts& own = textsOf(QSortFilterProxyModel::data(index, ROLE_ID).toString());
    switch (role) {
    case Qt::DisplayRole:
        return own.title;
    case Qt::ToolTipRole:
        return PlainTip::of(own.obstacle.isEmpty() ? QStringList{own.title, own.facts}
                                                   : QStringList{own.title, own.obstacle, own.facts});
    case ROLE_FACTS:
        return own.facts;
    case ROLE_OBSTACLE:
        return own.obstacle;
    case Qt::AccessibleTextRole:
        return own.obstacle.isEmpty() ? own.title : tr("%1, not possible: %2").arg(own.title, own.obstacle);
    case Qt::AccessibleDescriptionRole:
        return own.facts;
    default:
        return QSortFilterProxyModel::data(index, role);
    }
}

Qt::ItemFlags PresetList::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

QModelIndex PresetList::indexOf(const QString& id) const {
    for (int row = 0; row < rowCount(); ++row)
        if (index(row, 0).data(ROLE_ID).toString() == id)
            return index(row, 0);
    return {};
}

bool PresetList::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const QString id = sourceModel()->index(row, 0, parent).data(ROLE_ID).toString();
    const Texts& own = textsOf(id);
    const QString all = own.title + QLatin1Char(' ') + id + QLatin1Char(' ') + own.facts;
    return std::all_of(words.begin(), words.end(),
                       [&all](const QString& word) { return all.contains(word, Qt::CaseInsensitive); });
}

} // namespace Dialog
