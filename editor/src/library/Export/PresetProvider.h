// SPDX-License-Identifier: GPL-3.0-or-later
// Export::PresetProvider: the catalogue of presets as the export dialog shows it, the user's selection, and what
// follows from it for the streams of an export.
#pragma once

#include "EditorExportExport.h"
#include "EditorPreset/PresetStorage.h"
#include "Kestra/ClientAPI/BitrateRange.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/IFormatCodecAudio.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include <QMap>
#include <QModelIndex>
#include <QObject>
#include <QString>
#include <boost/rational.hpp>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

class QAbstractItemModel;
class QStandardItemModel;

namespace Export {

/// Belongs to the thread that made it: one that is shown, to the GUI thread. Strings are UTF-8. Order of use:
/// construct, load(), then selections and queries in any order. Pointers to stream records are borrowed for the call;
/// null means that the project has no such stream.
class EDITOREXPORT_EXPORT PresetProvider : public QObject {
    Q_OBJECT
public:
    /// Reads the catalogue at Settings::presetFilePath(). Throws Kestra::Exception when it cannot be loaded; the reason
    /// is attached as Kestra::TagDescription.
    explicit PresetProvider(QObject* parent);
    ~PresetProvider() override;

    /// Why the user's own presets are left out of the catalogue, with file and place; empty when they are not.
    std::string catalogueWarning() const { return storage.warning(); }

    /// Restores the last used tag and preset and fills the model; the first tag and its default preset where nothing
    /// was remembered or is no more.
    void load();
    /// One column, one row per preset of the current tag; the id stands under Qt::UserRole + 1. Owned by the provider.
    QAbstractItemModel* model() const;
    std::vector<std::string> tags() const;
    std::string currentTag() const;
    QString localizeTag(const std::string& tag);
    /// presetChanged of the tag's remembered row comes before tagChanged.
    void selectTag(const std::string& tag);
    /// The ids of the model's rows, in their order.
    std::vector<std::string> availablePresets() const;
    bool isPresetExists() const;
    QModelIndex modelIndexForCurrentPreset() const;
    /// Writes the selection to the settings, which warn where they cannot be written; without one, nothing.
    void commit();
    void retranslate();
    /// What an export uses: the selected preset with its edits.
    Preset preset() const;
    /// The catalogue's version of it.
    Preset originalPreset() const;

    bool audioExists(const Media::Audio* audio) const;
    bool videoExists(const Media::Video* video) const;
    /// New descriptions, owned by the caller. The stream must not be null. A null `preset` stands for the selected one.
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio> formatCodec(const Media::Audio* audio) const;
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> formatCodec(const Media::Video* video,
                                                                      const Preset* const preset) const;
    const Kestra::Conf::FrameInfo frameInfo(const Media::Video* video, const Preset* const preset) const;
    const boost::rational<long long> frameRate(const Media::Video* video) const;
    const Kestra::Conf::SampleInfo sampleInfo(const Media::Audio* audio) const;
    /// bit/s; {0, 0} without a stream or a usable preset, minimum = maximum where there is nothing to choose.
    const Kestra::ClientAPI::BitrateRange bitrate(const Media::Audio* audio) const;
    const Kestra::ClientAPI::BitrateRange bitrate(const Media::Video* video) const;
    const Kestra::ClientAPI::BitrateRange autoBitrate(const Media::Video* video, const Preset& preset) const;
    /// The record as the preset turns it out.
    Media::Audio applyPreset(const Media::Audio* audio) const;
    Media::Video applyPreset(const Media::Video* video) const;
    /// Replaces the selected preset by an edited one of the same id; false for another id.
    bool updatePreset(const Media::Video* video, const Preset& preset);
    /// Fits the selected preset's size to the source, which is never enlarged.
    void updateResolutionPresetIfNeeded(const Media::Video* video);

    /// Edited presets, kept by id as long as the provider lives. All below need a selected preset.
    bool customPresetExists() const;
    /// preset() where none was saved.
    Preset customPreset();
    void saveCustomPreset(const Preset& preset);
    std::set<std::string> qualityModifiers() const;
    /// The catalogue's preset with a modifier applied; unchanged by a name that is none.
    Preset modifiedPreset(const std::string& modifier) const;
    /// The first modifier, by name, that makes the catalogue's preset behave like the selected one; else empty.
    std::string findQualityModifier(const Media::Video* video) const;

Q_SIGNALS:
    void tagChanged(std::string tag);
    /// `row` is the selected row.
    void presetChanged(int row);
    void qualityChanged();

public Q_SLOTS:
    /// A row or an id that the model does not have changes nothing; nor does a preset that equals the selected one.
    void selectPreset(int row);
    void selectPreset(const std::string& id);

private:
    class FillGuard;

    void fillModel();
    QString presetIdAt(int row) const;
    const Kestra::Conf::SampleInfo sampleInfoPre(const Media::Audio* audio) const;
    bool fixupPresetResolution(const Media::Video* video, Preset* preset) const;

    QStandardItemModel* presetModel;
    bool filling;
    quint64 fillDepth;
    std::vector<std::string> tagNames;
    std::string currentPresetId;
    std::string currentTagName;
    QMap<std::string, int> selectedRowByTag;
    std::unique_ptr<Preset> currentPreset;
    PresetStorage storage;
    std::map<std::string, Preset> customPresets;
};

} // namespace Export
