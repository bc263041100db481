// SPDX-License-Identifier: GPL-3.0-or-later
// Export::StreamOwner: the owner of a composition's export streams, for a model of one's own.
#pragma once

#include "Composition/Object.h"
#include "EditorExportExport.h"
#include "Export/ExportStreams.h"
#include <QObject>
#include <exception>
#include <functional>
#include <memory>

namespace Export {

/// Adopts every export stream that is offered with a description of one composition, and leaves others alone. In a
/// later turn of the event loop it has the engine stream made, publishes it as `impl` and, last, `available`; once more
/// where source or range are changed before the stream is taken. A stream whose description leaves the composition is
/// let go. For models whose contents stay as they are while they are exported. Lives on the thread of the model.
class EDITOREXPORT_EXPORT StreamOwner : public QObject {
    Q_OBJECT
public:
    /// Make what shows the composition over `stream.range`, beginning at time 0, as `stream.source` describes it: as
    /// the preset turns it out. Called from the event loop. A null pointer, or what they throw, is a failure.
    using MakePictures = std::function<boost::intrusive_ptr<Kestra::Proc::IStreamVideo>(const Stream::VideoObject&)>;
    using MakeSound = std::function<boost::intrusive_ptr<Kestra::Proc::IStreamAudio>(const Stream::AudioObject&)>;

    /// The composition is borrowed; it outlives this.
    StreamOwner(const Composition::Object& composition, MakePictures makePictures, MakeSound makeSound,
                QObject* parent = nullptr);
    ~StreamOwner() override;

Q_SIGNALS:
    /// A stream cannot be made and will not become available. Comes from the event loop.
    void streamFailed(std::exception_ptr error);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace Export
