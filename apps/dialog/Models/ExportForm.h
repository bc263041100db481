// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::ExportForm: all that somebody chooses for an export.
#pragma once

#include "Export/PresetProvider.h"
#include "ExportCore/ExportRequest.h"
#include "ExportCore/OutputEstimate.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/SequenceName.h"
#include "ExportCore/SquarePixels.h"
#include "dialog/Models/CustomSettings.h"
#include "dialog/Models/LastChoice.h"
#include "dialog/Models/PresetList.h"
#include "dialog/Models/SourceMedia.h"
#include <QObject>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace Dialog {

/// The state of the window's form, without widgets. Every setter leads to changed(), unless nothing changes.
class ExportForm : public QObject {
    Q_OBJECT
public:
    enum class Part {
        Whole,
        Cut,     ///< from the in point to the out point
        Markers, ///< from one place of the timeline to another
    };
    Q_ENUM(Part)

    /// What is changed of a preset.
    struct Edits {
        std::string quality;
        CustomSettings custom;
        bool usesCustom = false;
    };
    /// A value: all that is chosen, to be chosen again.
    struct Choice {
        QStringList files;
        ExportCore::TimelineOptions options{};
        std::string tag;
        std::string preset;
        Edits edits{};
        Part part = Part::Whole;
        QString in{}, out{};
        int firstPlace = 0, lastPlace = 0;
        bool hasPicture = true, hasSound = true;
        QString branding{};
        QString output{};
    };

    /// Restores the last used tag and preset. Throws ExportCore::Refusal when the presets cannot be read.
    explicit ExportForm(QObject* parent = nullptr);
    ~ExportForm() override;

    Choice choice() const;
    /// Opens its files, if others are open, and all else when they are. Where they can no longer be opened the rest
    /// stays as it was.
    void choose(const Choice& choice);

    SourceMedia& source() { return media; }
    const SourceMedia& source() const { return media; }
    PresetList& presets() { return *list; }
    /// Why the user's own presets are left out; empty when they are not.
    QString catalogueWarning() const;

    std::vector<std::string> tags() const { return provider->tags(); }
    std::string tag() const { return provider->currentTag(); }
    void selectTag(const std::string& tag);
    std::string presetId() const { return chosenId; }
    /// One of the current tag's.
    void selectPreset(const QString& id);
    /// The catalogue's version.
    Preset preset() const { return provider->originalPreset(); }
    /// With everything that is changed in it, as far as that is possible.
    Preset editedPreset() const { return provider->preset(); }
    /// Names, the one that gives most bits first.
    std::vector<std::string> qualities() const;
    /// Empty: the preset as it is.
    std::string quality() const;
    void setQuality(const std::string& name);

    /// Of the selected preset; they stay its own when another one is selected.
    const CustomSettings& custom() const;
    bool usesCustom() const;
    void setCustom(const CustomSettings& settings);
    void setUsesCustom(bool use);
    void resetCustom();
    /// What the preset itself would come to: on the codec's scale, and in kbit/s for the source; where it does not
    /// tell, the middle of the scale and some usual bitrate.
    double usualQuality() const;
    int usualKilobits() const;

    Part part() const { return chosenPart; }
    void setPart(Part part);
    QString inText() const { return cutIn; }
    QString outText() const { return cutOut; }
    /// As people write times; empty for the source's own end.
    void setCut(const QString& in, const QString& out) { setCut(in, out, chosenPart); }
    void setCut(const QString& in, const QString& out, Part part);
    int firstPlace() const { return firstMark; }
    int lastPlace() const { return lastMark; }
    /// Indexes of SourceMedia::places().
    void setPlaces(int first, int last);
    /// What is exported of a source that is ready; nothing where what is chosen names no part of it.
    std::optional<Types::Range> range() const;

    bool hasPicture() const { return withPicture; }
    bool hasSound() const { return withSound; }
    void setStreams(bool picture, bool sound);
    /// Of the file, without the dot; empty where the output is a folder of pictures.
    QString extension() const;
    /// How the pictures are called where each is a file of its own.
    std::optional<ExportCore::SequenceName> sequence() const;
    QString branding() const { return outro; }
    void setBranding(const QString& name);
    QString output() const { return path; }
    /// A "~" at its beginning is the user's folder.
    void setOutput(const QString& wanted);
    /// Nobody writes on: the file's name gets its extension where it has none.
    void completeOutput();

    /// Why it cannot be exported as it stands, the first reason; empty when it can, as far as that is known.
    QString problem() const;
    /// What is wrong with the custom settings; empty when nothing is.
    QString customProblem() const;
    /// Of what stands there.
    ExportCore::ExportRequest request() const;
    /// Nothing where problem() tells why.
    std::optional<ExportCore::OutputEstimate> estimate() const;
    /// Remembers tag and preset for the next start, as LastChoice does.
    void commit();
    void retranslate();

Q_SIGNALS:
    void changed();
    /// Another preset is selected, or other presets are listed.
    void presetChanged();
    void sourceChanged();

private:
    void onSourceChanged();
    void takeChoice(const Choice& choice);
    void follow();
    void changePreset();
    void change();
    void applyEdits();
    /// As the export takes them.
    Media::Video pictures() const { return ExportCore::SquarePixels::of(media.project().video(), provider->preset()); }
    void restoreByName();
    void checkName();
    void suggestOutput();
    void nameForKind();
    bool isNumbered() const;
    QString fileExtension() const;
    QString presetProblem() const;
    QString rangeProblem() const;
    QString nameProblem() const;
    QString translated(const QString& refusal) const;
    std::optional<KTime> pointOf(const QString& text) const;
    std::optional<Types::Range> cutRange() const;
    std::optional<Types::Range> markedRange() const;

    const ExportCore::PresetCatalogue catalogue;
    SourceMedia media{this};
    std::unique_ptr<Export::PresetProvider> provider;
    PresetList* list;
    std::string chosenId;
    LastChoice lastChoice{this};
    std::map<std::string, Edits> edits; ///< by preset
    std::optional<Choice> awaited;      ///< until its files are open
    QString customRefusal;              ///< in English
    QString nameRefusal;                ///< likewise
    QString checkedName;                ///< what it is about
    Part chosenPart = Part::Whole;
    QString cutIn;
    QString cutOut;
    int firstMark = 0;
    int lastMark = 0;
    bool withPicture = true;
    bool withSound = true;
    QString outro;
    QString path;
    bool pathIsSuggested = true;
};

} // namespace Dialog
