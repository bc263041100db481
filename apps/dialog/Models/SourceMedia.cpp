// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/SourceMedia.h"

#include "ExportCore/PlainText.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/Proc/ProcessingError.h"
#include "Timeline/MarkerList.h"
#include "Types/Time.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/Retired.h"
#include "dialog/Models/Sentence.h"
#include <QFileInfo>
#include <algorithm>
#include <cstdint>

namespace Dialog {
namespace {

/// What a range can begin and end with.
class Places {
public:
    void add(const QString& name, std::int64_t start, std::int64_t end) {
        starts.push_back({name, Types::fromAvTime(start)});
        ends.push_back({name, Types::fromAvTime(end)});
    }

    /// Each time once: where one ends as another begins, by the latter's name.
    std::vector<MarkedPlace> upTo(KTime end) const {
        std::vector<MarkedPlace> all = starts;
        all.insert(all.end(), ends.begin(), ends.end());
        std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.time < b.time; });
        all.insert(all.begin(), {SourceMedia::tr("Start"), KTime(0)});
        const auto isRepeated = [end](const MarkedPlace& a, const MarkedPlace& b) {
            return a.time == b.time || b.time >= end;
        };
        all.erase(std::unique(all.begin(), all.end(), isRepeated), all.end());
        all.push_back({SourceMedia::tr("End"), end});
        return all;
    }

private:
    std::vector<MarkedPlace> starts;
    std::vector<MarkedPlace> ends;
};

QString plain(const std::string& text) {
    return QString::fromStdString(ExportCore::PlainText::escaped(text));
}

void addMarkers(Places& places, const Timeline::Document& document) {
    for (const Timeline::Marker& marker : Timeline::markersOf(*document.tracks))
        places.add(plain(marker.name), marker.range.start.Value(), marker.range.end().Value());
}

/// Of media, one after the other. Nothing is read: they have been opened.
void addChapters(Places& places, const Render::Sequence& sequence, const QStringList& files) {
    const std::vector<Timeline::Item>& items = sequence.document->tracks->tracks().front().items();
    std::int64_t at = 0;
    int number = 0;
    for (int i = 0; i < files.size(); ++i) {
        const auto source = sequence.media->open({{}, Timeline::MediaFile{Kestra::ioPath(files[i].toStdString())}});
        const std::int64_t length = items[static_cast<std::size_t>(i)].duration.Value();
        for (const auto& chapter : source->GetInfo().contents.programme.Part(0, length).chapters) {
            ++number;
            const QString name =
                chapter.title.empty() ? SourceMedia::tr("Chapter %1").arg(number) : plain(chapter.title);
            places.add(name, at + chapter.start, at + chapter.end);
        }
        at += length;
    }
}

std::vector<MarkedPlace> placesOf(const Render::Sequence& sequence, const QStringList& files) {
    Places places;
    if (ExportCore::TimelineOpening::isTimeline(files.front().toStdString()))
        addMarkers(places, *sequence.document);
    else
        addChapters(places, sequence, files);
    return places.upTo(Types::fromAvTime(sequence.document->duration().Value()));
}

} // namespace

SourceMedia::SourceMedia(QObject* parent)
    : QObject(parent) {}

SourceMedia::~SourceMedia() = default;

void SourceMedia::openWithMediaIn(const QString& folder) {
    ExportCore::TimelineOptions options = timelines;
    options.mediaRoot = folder.toStdString();
    open(QStringList(files), options);
}

void SourceMedia::openWithBlack() {
    ExportCore::TimelineOptions options = timelines;
    options.missing = ExportCore::TimelineOptions::Missing::Black;
    open(QStringList(files), options);
}

void SourceMedia::open(const QStringList& wanted, const ExportCore::TimelineOptions& options) {
    retire(opening, *this);
    files = wanted;
    timelines = options;
    refusal.clear();
    lacking = false;
    remarks.clear();
    marks.clear();
    shown.reset();
    opened.reset();
    current = files.isEmpty() ? State::Empty : State::Opening;
    if (current == State::Opening) {
        ExportCore::ExportRequest request;
        request.inputs = files;
        request.timelines = timelines;
        opening = std::make_unique<ExportCore::InputOpening>(request);
        opening->setParent(this);
        connect(opening.get(), &ExportCore::InputOpening::finished, this, &SourceMedia::onOpened);
        opening->start();
    }
    Q_EMIT changed();
}

void SourceMedia::onOpened(const std::exception_ptr& error) {
    try {
        if (error)
            std::rethrow_exception(error);
        show();
    } catch (...) { // of whatever kind, it is why nothing can be shown
        const auto told = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
        refuse(plain(told.GetDescription()));
    }
    retire(opening, *this);
    Q_EMIT changed();
}

void SourceMedia::show() {
    opened = std::make_unique<Render::Sequence>(opening->sequence());
    shown = std::make_unique<EditorProject>();
    shown->setParent(this);
    shown->show(*opened);
    for (const std::string& warning : opening->warnings())
        remarks << plain(warning);
    marks = placesOf(*opened, files);
    readMarks = opening->marks();
    if (shown->duration() <= KTime(0))
        return refuse(tr("There is nothing in it to export"));
    current = State::Ready;
}

void SourceMedia::refuse(const QString& reason) {
    current = State::Refused;
    // The command line's way out; here it is a button.
    const int option = reason.indexOf(QStringLiteral(". With --missing black"));
    lacking = option >= 0;
    refusal = lacking ? reason.left(option) : reason;
    shown.reset();
    opened.reset();
}

QString SourceMedia::whyRefused() const {
    return Sentence::translated(refusal);
}

QStringList SourceMedia::warnings() const {
    QStringList sentences;
    for (const QString& remark : remarks)
        sentences << Sentence::translated(remark);
    return sentences;
}

QString SourceMedia::name() const {
    if (files.isEmpty())
        return {};
    const QString first = plain(QFileInfo(files.front()).fileName().toStdString());
    return files.size() == 1 ? first : tr("%1 and %n more", nullptr, files.size() - 1).arg(first);
}

QString SourceMedia::facts() const {
    if (!isReady())
        return {};
    QStringList facts{PeoplesText::length(duration())};
    if (hasPictures())
        facts << tr("%1 × %2").arg(shown->video().width).arg(shown->video().height) << PeoplesText::frameRate(*rate());
    else
        facts << tr("no picture");
    facts << (hasSound() ? PeoplesText::sampleRate(shown->audio().sampleRate) : tr("no sound"));
    return facts.join(QStringLiteral(" · "));
}

ExportCore::TimePoint::Rate SourceMedia::rate() const {
    if (!hasPictures())
        return std::nullopt;
    return ExportCore::TimePoint::Rate({shown->video().frameRateNumerator, shown->video().frameRateDenominator});
}

} // namespace Dialog
