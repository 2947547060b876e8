#include "MailMessage.h"

#include <algorithm>
#include <gmime/gmime.h>
#include <memory>
#include <mutex>
#include <string_view>
#include <utility>

namespace pomwick {
namespace {

template <class T> struct Unref {
    void operator()(T* object) const { g_object_unref(object); }
};
template <class T> using GObjectPtr = std::unique_ptr<T, Unref<T>>;

void initialiseGMimeOnce() {
    static std::once_flag once;
    std::call_once(once, [] { g_mime_init(); });
}

// GMime separates addresses by commas and reads a semicolon only as the end of a group, while
// people separate them by either. The field with every semicolon that ends no group made a
// comma, and the count of the "@" signs outside quotes and comments: each must turn up in a
// parsed mailbox, or the parser has skipped an address.
struct AddressText {
    QByteArray text;
    int atSigns = 0;
    bool hasControls = false;
};

AddressText withCommasBetween(const QString& field) {
    AddressText result{field.toUtf8()};
    int comment = 0;
    bool quoted = false, angled = false, grouped = false, escaped = false;
    for (char& c : result.text) {
        result.hasControls |= (static_cast<unsigned char>(c) < 0x20 || c == 0x7f);
        if (std::exchange(escaped, false))
            continue;
        if (c == '\\' && (quoted || comment > 0))
            escaped = true;
        else if (quoted)
            quoted = c != '"';
        else if (c == '(')
            ++comment;
        else if (comment > 0)
            comment -= c == ')' ? 1 : 0;
        else if (c == '"')
            quoted = true;
        else if (c == '<' || c == '>')
            angled = c == '<';
        else if (c == '@')
            ++result.atSigns;
        else if (c == ':' && !angled)
            grouped = true;
        else if (c == ';' && !std::exchange(grouped, false))
            c = ',';
    }
    return result;
}

// An address in ASCII after IDNA, with a local part and a domain.
bool isDeliverable(InternetAddressMailbox* mailbox) {
    const std::string_view address = internet_address_mailbox_get_idn_addr(mailbox);
    const size_t at = address.find('@');
    return at != 0 && at != std::string_view::npos && at + 1 < address.size() &&
           std::all_of(address.begin(), address.end(), [](char c) { return c > ' ' && c < 127; });
}

// The mailboxes of the list and its groups, or -1 when one of them is not deliverable.
int deliverableMailboxes(InternetAddressList* list) {
    int count = 0;
    for (int i = 0; i < internet_address_list_length(list); ++i) {
        InternetAddress* address = internet_address_list_get_address(list, i);
        const int found = INTERNET_ADDRESS_IS_GROUP(address)
                              ? deliverableMailboxes(internet_address_group_get_members(
                                    INTERNET_ADDRESS_GROUP(address)))
                          : isDeliverable(INTERNET_ADDRESS_MAILBOX(address)) ? 1
                                                                             : -1;
        if (found < 0)
            return -1;
        count += found;
    }
    return count;
}

struct ParsedAddresses {
    GObjectPtr<InternetAddressList> list;
    bool deliverable = false;
};

ParsedAddresses parseAddresses(const QString& field) {
    initialiseGMimeOnce();
    const AddressText text = withCommasBetween(field);
    ParsedAddresses parsed{GObjectPtr<InternetAddressList>(
        internet_address_list_parse(nullptr, text.text.constData()))};
    if (parsed.list) {
        const int mailboxes = deliverableMailboxes(parsed.list.get());
        parsed.deliverable = !text.hasControls && mailboxes > 0 && mailboxes == text.atSigns;
    }
    return parsed;
}

} // namespace

bool isDeliverableRecipientList(const QString& to) {
    return parseAddresses(to).deliverable;
}

QByteArray composeMailMessage(const MailDraft& draft) {
    initialiseGMimeOnce();
    GObjectPtr<GMimeMessage> message(g_mime_message_new(TRUE));

    // The habit of Unix mail programs, one mailbox; without it the transport knows the sender
    // best.
    if (const ParsedAddresses from = parseAddresses(qEnvironmentVariable("EMAIL"));
        from.deliverable && internet_address_list_length(from.list.get()) == 1 &&
        INTERNET_ADDRESS_IS_MAILBOX(internet_address_list_get_address(from.list.get(), 0)))
        internet_address_list_append(
            g_mime_message_get_addresses(message.get(), GMIME_ADDRESS_TYPE_FROM), from.list.get());
    // A draft keeps whatever the parser makes of the field; only a deliverable one is sent.
    if (const ParsedAddresses to = parseAddresses(draft.to); to.list)
        internet_address_list_append(
            g_mime_message_get_addresses(message.get(), GMIME_ADDRESS_TYPE_TO), to.list.get());
    g_mime_message_set_subject(message.get(), draft.subject.toUtf8().constData(), "utf-8");
    GDateTime* now = g_date_time_new_now_local();
    g_mime_message_set_date(message.get(), now);
    g_date_time_unref(now);
    gchar* messageId = g_mime_utils_generate_message_id(g_get_host_name());
    g_mime_message_set_message_id(message.get(), messageId);
    g_free(messageId);

    GObjectPtr<GMimeTextPart> body(g_mime_text_part_new_with_subtype("plain"));
    // The text as UTF-8 whatever it holds, rather than the narrowest charset that would do.
    const QByteArray text8 = draft.body.toUtf8();
    GMimeStream* stream = g_mime_stream_mem_new_with_buffer(text8.constData(), text8.size());
    GMimeDataWrapper* content =
        g_mime_data_wrapper_new_with_stream(stream, GMIME_CONTENT_ENCODING_DEFAULT);
    g_object_unref(stream);
    GMimePart* part = GMIME_PART(body.get());
    g_mime_part_set_content(part, content);
    g_object_unref(content);
    g_mime_text_part_set_charset(body.get(), "utf-8");
    g_mime_part_set_content_encoding(
        part, g_mime_part_get_best_content_encoding(part, GMIME_ENCODING_CONSTRAINT_7BIT));
    g_mime_message_set_mime_part(message.get(), GMIME_OBJECT(body.get()));

    GMimeFormatOptions* options = g_mime_format_options_new();
    g_mime_format_options_set_newline_format(options, GMIME_NEWLINE_FORMAT_UNIX);
    gchar* text = g_mime_object_to_string(GMIME_OBJECT(message.get()), options);
    g_mime_format_options_free(options);
    QByteArray bytes(text);
    g_free(text);
    return bytes;
}

} // namespace pomwick
