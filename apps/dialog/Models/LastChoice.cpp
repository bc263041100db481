// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/LastChoice.h"

#include "EditorSettings/Settings.h"
#include "Export/PresetProvider.h"
#include "ExportCore/PresetSelection.h"
#include "Kestra/Proc/ProcessingError.h"
#include "dialog/Models/Retired.h"
#include <QtDebug>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace Dialog {

struct LastChoice::Wish {
    /// By a provider of its own: the window's belongs to the event loop's thread.
    void remember() const {
        if (Settings::lastUsedPresetGroup() == tag && Settings::lastUsedPresetId() == presetId)
            return;
        const auto provider = ExportCore::PresetSelection::makeProvider();
        provider->selectTag(tag);
        ExportCore::PresetSelection::selectInTag(*provider, presetId);
        provider->commit();
    }

    std::string tag;
    std::string presetId;
};

class LastChoice::Wishes {
public:
    void put(Wish wish) {
        const std::lock_guard<std::mutex> lock(mutex);
        last = std::move(wish);
    }
    std::optional<Wish> take() {
        const std::lock_guard<std::mutex> lock(mutex);
        return std::exchange(last, std::nullopt);
    }
    bool isEmpty() {
        const std::lock_guard<std::mutex> lock(mutex);
        return !last;
    }

private:
    std::mutex mutex;
    std::optional<Wish> last;
};

LastChoice::LastChoice(QObject* parent)
    : QObject(parent)
    , wishes(std::make_shared<Wishes>()) {}

LastChoice::~LastChoice() {
    writing.reset();
    if (wishes->isEmpty())
        return;
    begin();
    writing.reset();
}

void LastChoice::keep(const std::string& tag, const std::string& presetId) {
    wishes->put({tag, presetId});
    if (!writing)
        begin();
}

namespace {

/// It is no trouble of an export.
void warn(const std::exception_ptr& error) {
    if (!error)
        return;
    const auto told = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(error);
    qWarning("Cannot remember tag and preset: %s", told.GetDescription().c_str());
}

} // namespace

void LastChoice::begin() {
    writing =
        std::make_unique<ExportCore::BackgroundTask>("remember-choice", [wishes = wishes](const std::atomic<bool>&) {
            while (const auto wish = wishes->take())
                wish->remember();
        });
    connect(writing.get(), &ExportCore::BackgroundTask::finished, this, [this](const std::exception_ptr& error) {
        warn(error);
        retire(writing, *this);
        if (!wishes->isEmpty()) // put there when the task was about to end
            begin();
    });
    try {
        writing->start();
    } catch (const std::exception&) { // no thread is to be had
        warn(std::current_exception());
        writing.reset();
        wishes->take();
    }
}

} // namespace Dialog
