// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/EngineSetting.h"

namespace Kestra::Conf {

const char* const IFormatFile::TAG_CONTAINER_ID = TagOf(ContainerSetting::Id);
const char* const IFormatFile::TAG_MUXER_OPTIONS = TagOf(ContainerSetting::Options);

namespace {

class FormatFile final : public RefCountImpl, public IFormatFile {
public:
    const Core::Property& GetProperty() const override { return tree; }
    void SetProperty(const Core::Property& newTree) override { tree = newTree; }

private:
    Core::Property tree;
};

} // namespace

boost::intrusive_ptr<IFormatFile> IFormatFile::Create() {
    return new FormatFile;
}

IFormatFile::~IFormatFile() = default;

std::string IFormatFile::GetContainerID() const {
    const Core::Property& tree = GetProperty();
    return tree.ChildExists(TAG_CONTAINER_ID) ? tree[TAG_CONTAINER_ID].GetString() : std::string();
}

} // namespace Kestra::Conf
