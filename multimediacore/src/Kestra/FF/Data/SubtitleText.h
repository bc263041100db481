// SPDX-License-Identifier: GPL-3.0-or-later
// What of a subtitle's text is markup, and how what is none stands in each format. Text is UTF-8.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <string>

namespace Kestra::FF {

/// Whether a tag that SubRip knows begins at that "<", or ends what one began: bold, italic, underlined, struck out, a
/// font, a new line. Whatever else stands between "<" and ">" is text there.
bool IsSubRipTag(const std::string& text, std::size_t at);
/// Whether the text has tags that WebVTT does not know, which nobody shows who reads it.
bool HasForeignWebVttTags(const std::string& text);

/// The decoder library takes all between "<" and ">" for a tag: in a text of SubRip each "<" that begins none becomes
/// the character that is returned, which stands nowhere in it. 0 where nothing is replaced. As many bytes as before.
char ShieldSubRip(std::string& text);
/// In the event that the decoder made of it, the other way round.
void UnshieldSubRip(std::string& event, char standIn);

/// Characters of WebVTT that stand there by their names or numbers and that the decoder library does not know, as they
/// are.
std::string WithCharacters(const std::string& text);

/// Text of an event of Advanced SubStation Alpha, overrides among it, as the encoder library is to be given it for a
/// codec without styles: it takes it to be in that codec's own way.
std::string TextFor(AVCodecID codec, const std::string& text);

} // namespace Kestra::FF
