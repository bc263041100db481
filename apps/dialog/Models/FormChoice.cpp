// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::ExportForm: all that is chosen as one value.
#include "ExportCore/PresetSelection.h"
#include "dialog/Models/ExportForm.h"
#include <utility>

namespace Dialog {

ExportForm::Choice ExportForm::choice() const {
    const auto own = edits.find(chosenId);
    return {media.paths(), media.options(), tag(),  chosenId,  own == edits.end() ? Edits() : own->second,
            chosenPart,    cutIn,           cutOut, firstMark, lastMark,
            withPicture,   withSound,       outro,  path};
}

void ExportForm::choose(const Choice& choice) {
    const ExportCore::TimelineOptions& options = media.options();
    const bool isSame = media.paths() == choice.files && options.mediaRoot == choice.options.mediaRoot &&
                        options.missing == choice.options.missing;
    if (media.isReady() && isSame)
        return takeChoice(choice);
    media.open(choice.files, choice.options);
    awaited = choice;
}

/// Of files that are open.
void ExportForm::takeChoice(const Choice& choice) {
    provider->selectTag(choice.tag);
    ExportCore::PresetSelection::selectInTag(*provider, choice.preset);
    edits[choice.preset] = choice.edits;
    chosenPart = choice.part;
    cutIn = choice.in;
    cutOut = choice.out;
    firstMark = choice.firstPlace;
    lastMark = choice.lastPlace;
    withPicture = choice.hasPicture;
    withSound = choice.hasSound;
    outro = choice.branding;
    path = choice.output;
    pathIsSuggested = false;
    follow();
    path = choice.output; // it fits the preset as it was ordered
    change();
}

} // namespace Dialog
