#include "update/offer_text.h"

#include "text/strings.h"

namespace brovin::update {

using language::Message;

std::string sizeText(const language::MessageTable& messages, const ProgramOffer& offer) {
    return offer.sizeKb ? " - " + messages.getMessage(Message::DownloadSize) + ": " +
                              std::to_string(*offer.sizeKb) + " KB"
                        : "";
}

std::string changesText(std::string_view list) {
    return text::replaceAll(list, "|", "\r\n");
}

} // namespace brovin::update
