// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Conf::FormatCodecTree: a description that holds its own property tree.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Core/Property.h"

namespace Kestra::Conf {

/// Description is IFormatCodecVideo or IFormatCodecAudio.
template <class Description>
class FormatCodecTree : public Description, public RefCountImpl {
public:
    FormatCodecTree() = default;
    explicit FormatCodecTree(const Core::Property& tree)
        : tree(tree) {}

    const Core::Property& GetProperty() const override { return tree; }
    void SetProperty(const Core::Property& newTree) override { tree = newTree; }

protected:
    Core::Property& EditProperty() override { return tree; }

private:
    Core::Property tree;
};

} // namespace Kestra::Conf
