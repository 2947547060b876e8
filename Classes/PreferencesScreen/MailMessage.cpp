#include "MailMessage.h"

#include <gmime/gmime.h>
#include <memory>
#include <mutex>

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

} // namespace

QByteArray composeMailMessage(const MailDraft& draft) {
    initialiseGMimeOnce();
    GObjectPtr<GMimeMessage> message(g_mime_message_new(TRUE));

    const gchar* realName = g_get_real_name();
    const QByteArray sender = QByteArray(g_get_user_name()) + '@' + g_get_host_name();
    g_mime_message_add_mailbox(message.get(), GMIME_ADDRESS_TYPE_FROM,
                               g_strcmp0(realName, "Unknown") == 0 ? nullptr : realName,
                               sender.constData());
    for (const QString& recipient : draft.toRecipients)
        g_mime_message_add_mailbox(message.get(), GMIME_ADDRESS_TYPE_TO, nullptr,
                                   recipient.toUtf8().constData());
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
