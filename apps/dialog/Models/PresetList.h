// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PresetList: the presets of a tag as a list shows them.
#pragma once

#include <QHash>
#include <QSortFilterProxyModel>
#include <QStringList>

namespace Export {
class PresetProvider;
}
namespace ExportCore {
class PresetCatalogue;
}

namespace Dialog {

class SourceMedia;

/// Over PresetProvider::model(): with titles for people, the reason where a preset is of no use, and a search. Rows
/// that are of no use can be chosen, so that everybody can read why. All that it looks at is borrowed and outlives it.
class PresetList : public QSortFilterProxyModel {
    Q_OBJECT
public:
    enum Role {
        ROLE_ID = Qt::UserRole + 1, ///< the provider's
        ROLE_OBSTACLE = Qt::UserRole + 100,
        ROLE_FACTS,
    };

    PresetList(const Export::PresetProvider& provider, const ExportCore::PresetCatalogue& catalogue,
               const SourceMedia& source, QObject* parent = nullptr);

    /// Keeps what has all these words in its title, id or facts, in any order; an empty text keeps everything.
    void search(const QString& text);
    /// The source has changed, or the language.
    void refresh();

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// An invalid index where the search hides it.
    QModelIndex indexOf(const QString& id) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    struct Texts {
        QString title;
        QString facts;
        QString obstacle;
    };
    void readTexts();
    const Texts& textsOf(const QString& id) const;

    const ExportCore::PresetCatalogue& catalogue;
    const SourceMedia& source;
    QStringList words;
    QHash<QString, Texts> texts; ///< by id
};

} // namespace Dialog
