#include "dialog/Models/SourceMedia.h"

#include "ExportCore/PlainText.h"
#include "Kestra/Proc/ProcessingError.h"
#include "Timeline/MarkerList.h"
#include "Types/Time.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/Retired.h"
#include <QFileInfo>
#include <algorithm>

namespace Dialog {
namespace {

std::vector<MarkedPlace> placesOf(const Timeline::Document& document) {
    std::vector<MarkedPlace> places;
    const KTime end = Types::fromAvTime(document.duration().Value());
    for (const Timeline::Marker& marker : Timeline::markersOf(*document.tracks)) {
        const QString name = QString::fromStdString(ExportCore::PlainText::escaped(marker.name));
        for (const Kestra::Ticks time : {marker.range.start, marker.range.end()})
            places.push_back({name, Types::fromAvTime(time.Value())});
    }
    std::stable_sort(places.begin(), places.end(), [](const auto& a, const auto& b) { return a.time < b.time; });
    places.insert(places.begin(), {SourceMedia::tr("Start"), KTime(0)});
    const auto isRepeated = [end](const MarkedPlace& a, const MarkedPlace& b) {
        return a.time == b.time || b.time >= end;
    };
    places.erase(std::unique(places.begin(), places.end(), isRepeated), places.end());
    places.push_back({SourceMedia::tr("End"), end});
    return places;
}

} // namespace

SourceMedia::SourceMedia(QObject* parent)
    : QObject(parent) {}

SourceMedia::~SourceMedia() = default;

void SourceMedia::open(const QStringList& wanted, bool missingIsBlack) {
    retire(opening, *this);
    files = wanted;
    missingBlack = missingIsBlack;
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
        request.timelines.missing =
            missingBlack ? ExportCore::TimelineOptions::Missing::Black : ExportCore::TimelineOptions::Missing::Refused;
        opening = std::make_unique<ExportCore::InputOpening>(request);
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
        refuse(QString::fromStdString(ExportCore::PlainText::escaped(told.GetDescription())));
    }
    retire(opening, *this);
    Q_EMIT changed();
}

void SourceMedia::show() {
    opened = std::make_unique<Render::Sequence>(opening->sequence());
    shown = std::make_unique<EditorProject>();
    shown->show(*opened);
    for (const std::string& warning : opening->warnings())
        remarks << QString::fromStdString(ExportCore::PlainText::escaped(warning));
    marks = placesOf(*opened->document);
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

QString SourceMedia::name() const {
    if (files.isEmpty())
        return {};
    const QString first =
        QString::fromStdString(ExportCore::PlainText::escaped(QFileInfo(files.front()).fileName().toStdString()));
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
