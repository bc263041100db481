// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/OptionList.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <locale>
#include <sstream>

extern "C" {
#include <libavutil/error.h>
#include <libavutil/opt.h>
}

namespace Kestra::FF {

namespace {

std::string TextOf(const Core::Property& node) {
    struct Writer {
        std::ostringstream text;
        void operator()(std::monostate) {}
        void operator()(bool value) { text << (value ? 1 : 0); }
        void operator()(const Core::Property::Rational& value) {
            text << value.numerator() << '/' << value.denominator();
        }
        void operator()(std::int64_t value) { text << value; }
        void operator()(double value) { text << value; }
        void operator()(const std::string& value) { text << value; }
    } writer;
    writer.text.imbue(std::locale::classic());
    writer.text.precision(15);
    std::visit(writer, node.GetValue());
    return writer.text.str();
}

std::string JoinChildren(const Core::Property& node) {
    std::string text;
    for (const Core::Property& child : node.GetChildren())
        text += (text.empty() ? "" : ":") + child.GetName() + "=" + TextOf(child);
    return text;
}

} // namespace

OptionList::OptionList(const Core::Property& tree, const std::vector<std::string>& apart) {
    for (const Core::Property& child : tree.GetChildren()) {
        if (std::find(apart.begin(), apart.end(), child.GetName()) != apart.end())
            continue;
        options.push_back({child.GetName(), child.GetChildren().empty() ? TextOf(child) : JoinChildren(child)});
    }
}

void OptionList::AddFirst(const std::string& name, const Core::Property& value) {
    options.insert(options.begin(), {name, TextOf(value)});
}

bool OptionList::Has(const std::string& name) const {
    return std::any_of(options.begin(), options.end(), [&name](const Option& option) { return option.name == name; });
}

OptionList OptionList::Without(std::size_t index) const {
    OptionList rest = *this;
    rest.options.erase(rest.options.begin() + static_cast<std::ptrdiff_t>(index));
    return rest;
}

void OptionList::ApplyTo(void* target, const std::string& owner, Proc::TranscodingError code) const {
    for (const Option& option : options) {
        const int result = av_opt_set(target, option.name.c_str(), option.value.c_str(), AV_OPT_SEARCH_CHILDREN);
        if (result == AVERROR_OPTION_NOT_FOUND)
            Fail(code,
                 owner + " knows no option \"" + option.name + "\" (given with the value \"" + option.value + "\")");
        if (result < 0)
            ThrowError(result, code,
                       owner + " refuses the value \"" + option.value + "\" for its option \"" + option.name + "\"");
    }
}

} // namespace Kestra::FF
