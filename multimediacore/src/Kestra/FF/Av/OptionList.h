// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::OptionList: options from a property tree, handed to a libav object by name.
#pragma once

#include "Kestra/Core/Property.h"
#include "Kestra/Proc/TranscodingError.h"
#include <string>
#include <vector>

namespace Kestra::FF {

/// A value.
class OptionList {
public:
    struct Option {
        std::string name;
        std::string value;
    };

    OptionList() = default;
    /// Every child is an option; one with children of its own becomes "name=value:name=value". Children named in
    /// `apart` are no options.
    explicit OptionList(const Core::Property& tree, const std::vector<std::string>& apart = {});

    /// Before the others.
    void AddFirst(const std::string& name, const Core::Property& value);
    bool Has(const std::string& name) const;
    const std::vector<Option>& Get() const { return options; }
    OptionList Without(std::size_t index) const;
    /// Sets all of them on `target` (a struct that begins with an AVClass) or on its private part. Throws ProcException
    /// with `code` that names `owner`, the option and its value: unknown, or refused.
    void ApplyTo(void* target, const std::string& owner, Proc::TranscodingError code) const;

private:
    std::vector<Option> options;
};

} // namespace Kestra::FF
