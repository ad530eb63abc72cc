#include "character/acs_reader.h"
#include "character/acs_writer.h"
#include "character/bitmap.h"
#include "character/enlarger.h"
#include "character/image_codec.h"
#include "character_sample.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace brovin::bench {
namespace {

using namespace character;
using Bytes = std::vector<std::uint8_t>;

const Bytes& sampleFile() {
    static const Bytes file = *writeCharacter(sampleCharacter());
    return file;
}

/// The sample on disk for as long as the program runs.
class SampleOnDisk {
public:
    SampleOnDisk() {
        std::ofstream out(path_, std::ios::binary);
        const Bytes& file = sampleFile();
        for (const std::uint8_t byte : file)
            out.put(static_cast<char>(byte));
    }
    ~SampleOnDisk() { static_cast<void>(std::remove(path_.c_str())); }
    SampleOnDisk(const SampleOnDisk&) = delete;
    SampleOnDisk& operator=(const SampleOnDisk&) = delete;

    [[nodiscard]] Bytes read() const {
        Bytes bytes(std::filesystem::file_size(path_));
        std::ifstream in(path_, std::ios::binary);
        in.read(static_cast<char*>(static_cast<void*>(bytes.data())),
                static_cast<std::streamsize>(bytes.size()));
        return bytes;
    }

private:
    std::string path_ = std::filesystem::temp_directory_path() / "brovin-character-bench.acs";
};

const SampleOnDisk& sampleOnDisk() {
    static const SampleOnDisk sample;
    return sample;
}

void list(benchmark::State& state) {
    const Bytes& file = sampleFile();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(readListing(file, 0x0409));
    state.counters["fileBytes"] = static_cast<double>(file.size());
}
BENCHMARK(list);

void listFromDisk(benchmark::State& state) {
    const SampleOnDisk& disk = sampleOnDisk();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(readListing(disk.read(), 0x0409));
}
BENCHMARK(listFromDisk)->Unit(benchmark::kMillisecond);

void load(benchmark::State& state) {
    const SharedBytes file(sampleFile());
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(readCharacter(file));
}
BENCHMARK(load)->Unit(benchmark::kMillisecond);

void loadFromDisk(benchmark::State& state) {
    const SampleOnDisk& disk = sampleOnDisk();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(readCharacter(SharedBytes(disk.read())));
}
BENCHMARK(loadFromDisk)->Unit(benchmark::kMillisecond);

void decode(benchmark::State& state, const Bytes& plain) {
    const Bytes packed = pack(plain);
    Bytes out(plain.size());
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(unpack(packed, out));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(plain.size()));
    state.counters["packedPercent"] =
        100.0 * static_cast<double>(packed.size()) / static_cast<double>(plain.size());
}
BENCHMARK_CAPTURE(decode, figure, drawnFigure(7).pixels);
BENCHMARK_CAPTURE(decode, oneColour, Bytes(40000, 10));
BENCHMARK_CAPTURE(decode, noise, noise(40000));
BENCHMARK_CAPTURE(decode, shortCopies, shortCopies(40000));

/// All images of the sample, rows turned and padding taken off.
void decodeCharacter(benchmark::State& state) {
    const auto character = readCharacter(SharedBytes(sampleFile()));
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto _ : state)
        for (const EncodedImage& image : character->images) {
            const auto decoded = decodeImage(image);
            bytes += static_cast<std::int64_t>(decoded->pixels.size());
            benchmark::DoNotOptimize(decoded->pixels.data());
        }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(decodeCharacter)->Unit(benchmark::kMillisecond);

void encode(benchmark::State& state, const Bytes& plain) {
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(pack(plain));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(plain.size()));
}
BENCHMARK_CAPTURE(encode, figure, drawnFigure(7).pixels);
BENCHMARK_CAPTURE(encode, shortCopies, shortCopies(40000));

void paintFrame(benchmark::State& state) {
    const auto character = readCharacter(SharedBytes(sampleFile()));
    ImageStore images(character->images);
    FramePainter painter(*character, images);
    const Frame& frame = character->animations.front().frames.back();
    Bitmap canvas;
    for ([[maybe_unused]] auto _ : state) {
        painter.paint(frame, &frame.mouths.front(), canvas);
        benchmark::DoNotOptimize(canvas.pixels.data());
    }
}
BENCHMARK(paintFrame);

/// Two frames in turn that differ all over, to so many percent. The last is the most that is enlarged at all.
void enlarge(benchmark::State& state) {
    const auto side = static_cast<std::uint16_t>(state.range(0));
    const auto percent = static_cast<std::uint32_t>(state.range(1));
    std::vector<Bitmap> frames(2, {side, side, std::vector<std::uint32_t>(std::size_t{side} * side)});
    for (std::uint32_t i = 0; i < frames.size(); ++i) {
        const IndexedImage figure = drawnFigure(i * 9);
        for (std::size_t at = 0; at < frames[i].pixels.size(); ++at) {
            const std::size_t from =
                at / side * figure.height / side * figure.width + at % side * figure.width / side;
            frames[i].pixels[at] =
                figure.pixels[from] == 10 ? 0 : 0xFF000000U | figure.pixels[from] * 0x010203U;
        }
    }
    const auto larger = static_cast<std::uint16_t>(side * percent / 100);
    Enlarger enlarger;
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(enlarger.enlarge(frames[next++ % 2], {larger, larger}).pixels.data());
}
BENCHMARK(enlarge)
    ->Args({128, 150})
    ->Args({128, 200})
    ->Args({128, 300})
    ->Args({682, 150})
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace brovin::bench

BENCHMARK_MAIN();
