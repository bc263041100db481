#include "dialog/Models/Sentence.h"

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

struct Form {
    const char* source;
    QRegularExpression pattern;
    std::vector<bool> isName; ///< by place, from "%1" on
};

int placeAt(const QString& form, int index) {
    return form[index] == QLatin1Char('%') && index + 1 < form.size() ? form[index + 1].digitValue() : -1;
}

Form formOf(const char* source) {
    const QString text = QString::fromUtf8(source);
    Form form{source, {}, {}};
    QString pattern;
    for (int i = 0; i < text.size(); ++i) {
        if (placeAt(text, i) < 1) {
            pattern += QRegularExpression::escape(text.mid(i, 1));
            continue;
        }
        const QChar before = i == 0 ? QChar() : text[i - 1];
        form.isName.push_back(before == QLatin1Char('"') || before == QLatin1Char('('));
        pattern += QStringLiteral("(.+?)");
        ++i;
    }
    form.pattern = QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                      QRegularExpression::DotMatchesEverythingOption);
    return form;
}

const std::vector<Form>& forms() {
    static const std::vector<Form> all = [] {
        std::vector<Form> made;
        for (const char* const source : SENTENCE_FORMS)
            made.push_back(formOf(source));
        return made;
    }();
    return all;
}

std::optional<QString> known(const QString& english);

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

QString filled(const Form& form, const QRegularExpressionMatch& match) {
    QStringList parts;
    for (std::size_t i = 0; i < form.isName.size(); ++i) {
        const QString part = match.captured(static_cast<int>(i) + 1);
        parts << (form.isName[i] ? part : known(part).value_or(part));
    }
    return filled(Sentence::tr(form.source), parts);
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

/// Several of which each is known.
std::optional<QString> knownList(const QString& english, const QString& separator) {
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

std::optional<QString> known(const QString& english) {
    if (const auto list = knownList(english, QStringLiteral("; ")))
        return list;
    for (const Form& form : forms())
        if (const auto match = form.pattern.match(english); match.hasMatch())
            return filled(form, match);
    return knownList(english, QStringLiteral(", "));
}

} // namespace

QString Sentence::translated(const QString& english) {
    return english.size() > LONGEST ? english : known(english).value_or(english);
}

} // namespace Dialog
