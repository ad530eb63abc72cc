#include "desktop/widgets/movie.h"

#include <QFile>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <memory>

namespace brovin::desktop {
namespace {

constexpr qsizetype kMostFrames = 300;
constexpr int kLargestSide = 1024;

/// Releases what libav hands out by pointers to pointers.
template <auto release>
struct Releaser {
    template <class T>
    void operator()(T* held) const {
        release(&held);
    }
};
using Format = std::unique_ptr<AVFormatContext, Releaser<avformat_close_input>>;
using Decoder = std::unique_ptr<AVCodecContext, Releaser<avcodec_free_context>>;
using Frame = std::unique_ptr<AVFrame, Releaser<av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, Releaser<av_packet_free>>;
using Scaler = std::unique_ptr<SwsContext, decltype(&sws_freeContext)>;

Format openFile(const QString& path) {
    AVFormatContext* opened = nullptr;
    if (avformat_open_input(&opened, QFile::encodeName(path).constData(), av_find_input_format("avi"),
                            nullptr) < 0)
        return nullptr;
    Format format(opened);
    return avformat_find_stream_info(format.get(), nullptr) < 0 ? nullptr : std::move(format);
}

Decoder openDecoder(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (codec == nullptr || parameters.width <= 0 || parameters.height <= 0 ||
        std::max(parameters.width, parameters.height) > kLargestSide)
        return nullptr;
    Decoder decoder(avcodec_alloc_context3(codec));
    if (!decoder || avcodec_parameters_to_context(decoder.get(), &parameters) < 0 ||
        avcodec_open2(decoder.get(), codec, nullptr) < 0)
        return nullptr;
    return decoder;
}

QImage imageOf(const AVFrame& frame, QSize size) {
    if (QSize(frame.width, frame.height) != size)
        return {};
    const Scaler scaler(sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format),
                                       frame.width, frame.height, AV_PIX_FMT_BGRA, SWS_POINT, nullptr,
                                       nullptr, nullptr),
                        &sws_freeContext);
    QImage image(size, QImage::Format_RGB32);
    if (!scaler || image.isNull())
        return {};
    uint8_t* const planes[] = {image.bits(), nullptr, nullptr, nullptr};
    const int strides[] = {static_cast<int>(image.bytesPerLine()), 0, 0, 0};
    sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, planes, strides);
    return image;
}

/// Takes the frames that are ready; false: the decoder has failed.
bool takeFrames(AVCodecContext& decoder, AVFrame& frame, Movie& movie) {
    const QSize size(decoder.width, decoder.height);
    for (;;) {
        const int got = avcodec_receive_frame(&decoder, &frame);
        if (got == AVERROR(EAGAIN) || got == AVERROR_EOF)
            return true;
        QImage image = got < 0 ? QImage() : imageOf(frame, size);
        if (image.isNull() || (!movie.frames.isEmpty() && movie.frames.front().size() != size))
            return false;
        movie.frames.append(std::move(image));
    }
}

Movie decode(const QString& path) {
    Movie movie;
    const Format format = openFile(path);
    const int index = format ? av_find_best_stream(format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0) : -1;
    if (index < 0)
        return movie;
    const AVStream& stream = *format->streams[index];
    const Decoder decoder = openDecoder(stream);
    const Frame frame(av_frame_alloc());
    const Packet packet(av_packet_alloc());
    if (!decoder || !frame || !packet)
        return movie;
    if (stream.avg_frame_rate.num > 0 && stream.avg_frame_rate.den > 0)
        movie.interval = std::clamp(
            std::chrono::milliseconds(1000LL * stream.avg_frame_rate.den / stream.avg_frame_rate.num),
            std::chrono::milliseconds(20), std::chrono::milliseconds(1000));
    while (movie.frames.size() < kMostFrames && av_read_frame(format.get(), packet.get()) >= 0) {
        const bool ours = packet->stream_index == index;
        const bool sound = !ours || (avcodec_send_packet(decoder.get(), packet.get()) >= 0 &&
                                     takeFrames(*decoder, *frame, movie));
        av_packet_unref(packet.get());
        if (!sound)
            return {};
    }
    avcodec_send_packet(decoder.get(), nullptr);
    return takeFrames(*decoder, *frame, movie) ? movie : Movie{};
}

} // namespace

/// What the module is loaded for.
extern "C" Q_DECL_EXPORT void brovinDecodeMovie(const QString& path, Movie& movie) {
    av_log_set_level(AV_LOG_QUIET);
    movie = decode(path);
}

} // namespace brovin::desktop
