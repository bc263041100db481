// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TimelineJson.h"

#include "Types/Time.h"
#include "cli/JsonText.h"

namespace Cli {
namespace {

using Kestra::Ticks;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

qint64 milliseconds(Ticks time) {
    return Types::fromAvTime(time.Value()).milliseconds();
}

QJsonArray arrayOf(const std::vector<Timeline::Marker>& markers) {
    QJsonArray array;
    for (const Timeline::Marker& marker : markers)
        array.append(QJsonObject{{key("name"), text(marker.name)},
                                 {key("color"), text(marker.colour)},
                                 {key("comment"), text(marker.comment)},
                                 {key("startMs"), milliseconds(marker.range.start)},
                                 {key("durationMs"), milliseconds(marker.range.duration)}});
    return array;
}

/// Adds what kind of medium it is, and which.
void describe(QJsonObject& object, const Timeline::MediaTarget& target) {
    if (const auto* file = std::get_if<Timeline::MediaFile>(&target)) {
        object.insert(key("media"), text(file->path.ToUtf8()));
    } else if (const auto* sequence = std::get_if<Timeline::ImageSequence>(&target)) {
        object.insert(key("media"), text(sequence->folder.ToUtf8() + '/' + sequence->nameOf(0)));
        object.insert(key("pictureRate"), fractionText(sequence->rate));
    } else if (const auto* missing = std::get_if<Timeline::MissingMedia>(&target)) {
        object.insert(key("media"), text(missing->url));
        object.insert(key("missing"), text(missing->why));
    } else {
        object.insert(key("generator"), key(nameOf(std::get<Timeline::Generator>(target).kind)));
    }
}

QJsonObject stackOf(const Timeline::Stack& stack);

void describe(QJsonObject& object, const Timeline::Excerpt& excerpt, Ticks origin) {
    object.insert(key("mediaStartMs"), milliseconds(excerpt.start - origin));
    if (excerpt.speed != 1)
        object.insert(key("speed"), fractionText(excerpt.speed));
}

QJsonObject itemOf(const Timeline::Item& item, Ticks start) {
    QJsonObject object{{key("name"), text(item.name)},
                       {key("startMs"), milliseconds(start)},
                       {key("durationMs"), milliseconds(item.duration)}};
    if (const auto* clip = std::get_if<Timeline::Clip>(&item.content)) {
        object.insert(key("type"), key("clip"));
        describe(object, clip->media.target);
        describe(object, clip->excerpt, clip->origin.value_or(Ticks(0)));
    } else if (const auto* nested = std::get_if<Timeline::Nested>(&item.content)) {
        object.insert(key("type"), key("stack"));
        describe(object, nested->excerpt, Ticks(0));
        object.insert(key("stack"), stackOf(*nested->stack));
    } else {
        object.insert(key("type"), key("gap"));
    }
    if (!item.enabled)
        object.insert(key("enabled"), false);
    if (!item.markers.empty())
        object.insert(key("markers"), arrayOf(item.markers));
    return object;
}

QJsonObject trackOf(const Timeline::Track& track) {
    QJsonArray items;
    for (std::size_t index = 0; index < track.items().size(); ++index)
        items.append(itemOf(track.items()[index], track.startOf(index)));
    QJsonArray transitions;
    for (const Timeline::Transition& transition : track.transitions())
        transitions.append(QJsonObject{{key("name"), text(transition.name)},
                                       {key("type"), text(transition.type)},
                                       {key("atMs"), milliseconds(track.startOf(transition.at))},
                                       {key("beforeMs"), milliseconds(transition.before)},
                                       {key("behindMs"), milliseconds(transition.behind)}});
    QJsonObject object{{key("name"), text(track.name())},
                       {key("kind"), key(track.kind() == Timeline::Track::Kind::Video ? "video" : "audio")},
                       {key("durationMs"), milliseconds(track.duration())},
                       {key("items"), items},
                       {key("transitions"), transitions}};
    if (!track.isEnabled())
        object.insert(key("enabled"), false);
    if (!track.markers().empty())
        object.insert(key("markers"), arrayOf(track.markers()));
    return object;
}

QJsonObject stackOf(const Timeline::Stack& stack) {
    QJsonArray tracks;
    for (const Timeline::Track& track : stack.tracks())
        tracks.append(trackOf(track));
    QJsonObject object{{key("tracks"), tracks}, {key("durationMs"), milliseconds(stack.duration())}};
    if (!stack.markers().empty())
        object.insert(key("markers"), arrayOf(stack.markers()));
    return object;
}

const char* nameOf(Timeline::Finding::Kind kind) {
    switch (kind) {
    case Timeline::Finding::Kind::Error:
        return "error";
    case Timeline::Finding::Kind::MissingMedia:
        return "missing";
    case Timeline::Finding::Kind::Warning:
        break;
    }
    return "warning";
}

} // namespace

const char* nameOf(Timeline::Generator::Kind kind) {
    switch (kind) {
    case Timeline::Generator::Kind::Bars:
        return "bars";
    case Timeline::Generator::Kind::Colour:
        return "color";
    case Timeline::Generator::Kind::Tone:
        return "tone";
    case Timeline::Generator::Kind::Silence:
        break;
    }
    return "silence";
}

QJsonArray jsonOf(const std::vector<Timeline::Finding>& findings) {
    QJsonArray array;
    for (const Timeline::Finding& one : findings) {
        QJsonObject object{{key("kind"), key(nameOf(one.kind))}, {key("message"), text(one.text)}};
        if (!one.place.empty())
            object.insert(key("place"), text(one.place));
        if (!one.pointer.empty())
            object.insert(key("pointer"), text(one.pointer));
        array.append(object);
    }
    return array;
}

QJsonObject jsonOf(const Timeline::Document& document) {
    QJsonObject object = stackOf(*document.tracks);
    object.insert(key("name"), text(document.name));
    if (document.globalStart)
        object.insert(key("startTimeCodeMs"), milliseconds(*document.globalStart));
    return object;
}

} // namespace Cli
