// SPDX-License-Identifier: GPL-3.0-or-later
// BrandingController: appends the branding outro to what is exported.
#pragma once

#include "EditorExportExport.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <QPixmap>

/// A value: the outro's picture. The outro shows it for five seconds on black, whole and in its own shape, faded in and
/// out; sound gets as much silence. Without a picture (at first, or after a null one was set) nothing is changed.
/// Engine factories are asked in the calling thread; what they throw is passed on.
class EDITOREXPORT_EXPORT BrandingController {
public:
    BrandingController();
    BrandingController(const BrandingController& other);
    BrandingController(BrandingController&& other) noexcept;
    BrandingController& operator=(const BrandingController& other);
    BrandingController& operator=(BrandingController&& other) noexcept;
    ~BrandingController();

    void setBranding(const QPixmap& picture);

    /// The stream with the outro behind it, to be read in place of the given one; the given one itself when there is no
    /// picture or no stream.
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo>
    addBranding(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& video);
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio>
    addBranding(const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audio);

private:
    QPixmap picture;
};
