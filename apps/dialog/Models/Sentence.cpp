// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/Sentence.h"

#include "dialog/Models/NoteForms.h"
#include "dialog/Models/SentenceForms.h"
#include <QChar>
#include <QRegularExpression>
#include <QStringList>
#include <optional>
#include <vector>

namespace Dialog {
namespace {

/// Nobody reads longer ones, and looking at them takes time.
constexpr int LONGEST = 4000;

enum class Part {
    Sentence,
    Name,
    Preset,
    Presets, ///< several
};

struct Form {
    const char* source;
    QRegularExpression pattern;
    std::vector<Part> parts; ///< by place, from "%1" on
    QString begin;           ///< what stands before the first place; looked at first, as that is done in no time
    QString end;             ///< what stands behind the last one

    QRegularExpressionMatch match(const QString& text) const {
        return text.startsWith(begin) && text.endsWith(end) ? pattern.match(text) : QRegularExpressionMatch();
    }
};

int placeAt(const QString& form, int index) {
    return form[index] == QLatin1Char('%') && index + 1 < form.size() ? form[index + 1].digitValue() : -1;
}

Part partBehind(const QString& before) {
    if (before.endsWith(QStringLiteral("preset \"")))
        return Part::Preset;
    if (before.endsWith(QStringLiteral("presets that do: ")))
        return Part::Presets;
    if (before == QStringLiteral("interlaced (") || before.endsWith(QStringLiteral("can be decoded (")))
        return Part::Sentence;
    const bool isName = before.endsWith(QLatin1Char('"')) || before.endsWith(QLatin1Char('('));
    return isName ? Part::Name : Part::Sentence;
}

/// Of so many things: one or two words follow, and perhaps which those are.
bool isCount(const QString& before, const QString& behind) {
    static const auto& things = *new QRegularExpression(QStringLiteral("^ (\\w+ )?\\w+( \\(%2\\))?$"));
    return before.isEmpty() && things.match(behind).hasMatch();
}

/// What stands at a place. Numbers, single words, lengths and what is in quotes do not go on in the next part of a
/// list.
QString patternOf(const QString& before, const QString& behind) {
    if (isCount(before, behind))
        return QStringLiteral("(\\d+)");
    for (const char* const words : {"became ", "of the "})
        if (before.endsWith(QLatin1String(words)))
            return QStringLiteral("([^\\s,]+)");
    for (const char* const words : {"picture for ", "silent for "})
        if (before.endsWith(QLatin1String(words)))
            return QStringLiteral("(\\S+ ms)");
    return before.endsWith(QLatin1Char('"')) ? QStringLiteral("((?:(?!\", ).)+?)") : QStringLiteral("(.+?)");
}

Form formOf(const char* source) {
    const QString text = QString::fromUtf8(source);
    Form form{source, {}, {}, {}, {}};
    QString pattern;
    for (int i = 0; i < text.size(); ++i) {
        if (placeAt(text, i) < 1) {
            pattern += QRegularExpression::escape(text.mid(i, 1));
            (form.parts.empty() ? form.begin : form.end) += text[i];
            continue;
        }
        form.end.clear();
        const QString before = text.left(i);
        form.parts.push_back(partBehind(before));
        pattern += patternOf(before, text.mid(i + 2));
        ++i;
    }
    form.pattern = QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                      QRegularExpression::DotMatchesEverythingOption);
    return form;
}

const std::vector<Form>& forms() {
    static const auto& all = *new std::vector<Form>([] {
        std::vector<Form> made;
        for (const char* const source : SENTENCE_FORMS)
            made.push_back(formOf(source));
        for (const char* const source : NOTE_FORMS)
            made.push_back(formOf(source));
        return made;
    }());
    return all;
}

QString filled(const QString& form, const QStringList& parts) {
    QString text;
    for (int i = 0; i < form.size(); ++i) {
        const int place = placeAt(form, i);
        const bool isPlace = place >= 1 && place <= parts.size();
        text += isPlace ? parts[place - 1] : QString(form[i]);
        i += isPlace ? 1 : 0;
    }
    return text;
}

/// What stands between separators outside of quotes and parentheses.
QStringList split(const QString& text, const QString& separator) {
    QStringList parts{QString()};
    int depth = 0;
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        quoted = quoted != (text[i] == QLatin1Char('"'));
        depth += quoted ? 0 : text[i] == QLatin1Char('(') ? 1 : text[i] == QLatin1Char(')') ? -1 : 0;
        if (!quoted && depth == 0 && text.midRef(i, separator.size()) == separator) {
            parts << QString();
            i += separator.size() - 1;
        } else {
            parts.back() += text[i];
        }
    }
    return parts;
}

/// One translation.
class Speaker {
public:
    explicit Speaker(const Sentence::Titles& titles)
        : titles(titles) {}

    std::optional<QString> known(const QString& english) const {
        if (auto list = knownList(english, QStringLiteral("; ")))
            return list;
        for (const Form& form : forms())
            if (const auto match = form.match(english); match.hasMatch())
                return said(form, match);
        if (auto list = knownList(english, QStringLiteral(", ")))
            return list;
        return partlyKnownList(english);
    }

private:
    QString said(const Form& form, const QRegularExpressionMatch& match) const {
        QStringList parts;
        for (std::size_t i = 0; i < form.parts.size(); ++i)
            parts << said(form.parts[i], match.captured(static_cast<int>(i) + 1));
        return filled(Sentence::tr(form.source), parts);
    }

    QString said(Part kind, const QString& part) const {
        switch (kind) {
        case Part::Sentence:
            return known(part).value_or(part);
        case Part::Preset:
            return titles(part);
        case Part::Presets:
            return titlesOf(part);
        case Part::Name:
            break;
        }
        return part;
    }

    /// "a, b or c"
    QString titlesOf(const QString& ids) const {
        QStringList all;
        for (const QString& id :
             QString(ids).replace(QStringLiteral(" or "), QStringLiteral(", ")).split(QStringLiteral(", ")))
            all << Sentence::tr("“%1”", "a preset").arg(titles(id));
        return all.join(QStringLiteral(", "));
    }

    /// Several of which each is known.
    std::optional<QString> knownList(const QString& english, const QString& separator) const {
        const QStringList parts = split(english, separator);
        if (parts.size() < 2)
            return std::nullopt;
        QStringList all;
        for (const QString& part : parts) {
            const std::optional<QString> one = known(part);
            if (!one)
                return std::nullopt;
            all << *one;
        }
        return all.join(separator);
    }

    /// Several of which the last ones are known.
    std::optional<QString> partlyKnownList(const QString& english) const {
        const QString separator = QStringLiteral("; ");
        const QStringList parts = split(english, separator);
        const std::optional<QString> last = parts.size() < 2 ? std::nullopt : known(parts.back());
        if (!last)
            return std::nullopt;
        const QString others = QStringList(parts.mid(0, parts.size() - 1)).join(separator);
        return known(others).value_or(others) + separator + *last;
    }

    const Sentence::Titles& titles;
};

} // namespace

QString Sentence::translated(const QString& english, const Titles& titles) {
    return english.size() > LONGEST ? english : Speaker(titles).known(english).value_or(english);
}

QString Sentence::translatedTitle(const QString& id) {
    return QCoreApplication::translate("editorPresets", id.toUtf8().constData());
}

} // namespace Dialog
