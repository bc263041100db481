// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioContext.h"

namespace Timeline {

OtioContext::Within::Within(OtioContext& context, const char* kind, const std::string& name)
    : context(context) {
    context.path.push_back(name.empty() ? std::string(kind) : std::string(kind) + " \"" + name + '"');
}

OtioContext::Within::~Within() {
    context.path.pop_back();
}

OtioContext::Unseen::Unseen(OtioContext& context, bool enabled)
    : context(context)
    , before(context.isUnseen) {
    context.isUnseen = before || !enabled;
}

OtioContext::Unseen::~Unseen() {
    context.isUnseen = before;
}

void OtioContext::tell(Finding::Kind kind, const OtioNode& node, const std::string& text) {
    if (isUnseen && kind == Finding::Kind::MissingMedia)
        kind = Finding::Kind::Warning;
    const bool isSpared = consequence && kind == Finding::Kind::Error;
    if (isSpared)
        kind = Finding::Kind::Warning;
    if (findings.size() >= MOST_FINDINGS) {
        ++untold;
        untoldErrors = untoldErrors || kind != Finding::Kind::Warning;
        return;
    }
    std::string place;
    for (const std::string& part : path)
        place += (place.empty() ? "" : ", ") + part;
    findings.push_back({kind, place, node.pointer(), isSpared ? text + "; " + consequence : text});
}

std::string OtioContext::nameOf(const OtioNode& node) {
    std::string name = node.text("name");
    const std::size_t end = name.find('\0');
    if (end == std::string::npos)
        return name;
    warn(node["name"], "a NUL stands in the name, which ends there");
    return name.substr(0, end);
}

std::vector<Finding> OtioContext::take() {
    if (untold > 0)
        findings.push_back({untoldErrors ? Finding::Kind::Error : Finding::Kind::Warning,
                            {},
                            {},
                            std::to_string(untold) + " more findings are not listed"});
    untold = 0;
    return std::move(findings);
}

} // namespace Timeline
