// Whether the characters that ship can be told apart with closed eyes. Prints the table of
// docs/characters.md.

#include "character/acs_reader.h"
#include "voice/statement.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <numbers>

namespace brovin::voice {
namespace {

// Between any two, in each language.
constexpr double kSpectrumApart = 2.5; ///< dB, the mean over the bands
constexpr double kPitchApart = 2.0;    ///< semitones
constexpr double kMonotone = 1.0;      ///< semitones that a flat voice may stray
constexpr double kHighestPeak = -1.0;  ///< dB of full scale

constexpr std::size_t kBands = 16;
constexpr std::size_t kWindow = 256;
constexpr const char* kNames[] = {"peedy", "merlin", "genie", "robby"};
constexpr std::pair<long, const char*> kTexts[] = {
    {0x0409, "Good evening. I have looked through all of your folders, and there was nothing to sweep away!"},
    {0x0407, "Guten Abend. Ich habe alle deine Ordner durchgesehen, und es gab nichts wegzufegen!"},
    {0x040C, "Bonsoir. J'ai regardé dans tous vos dossiers, et il n'y avait rien à balayer!"},
    {0x0C0A, "Buenas noches. He mirado en todas tus carpetas, y no había nada que barrer."},
    {0x0419, "Добрый вечер. Я посмотрел все твои папки, и выметать было нечего!"},
};

struct Voice {
    double hertz = 0;  ///< median
    double melody = 0; ///< semitones between the quarters of the pitches
    double wordsPerMinute = 0;
    double peak = 0;                    ///< dB
    std::array<double, kBands> shape{}; ///< dB, of mean 0
};

double semitones(double from, double to) {
    return 12 * std::log2(to / from);
}

/// In Hz, of 40 ms from here on; 0: not voiced.
double pitchAt(const std::int16_t* sound) {
    constexpr int kLength = 882;
    constexpr int kShortest = 55;
    constexpr int kLongest = 370;
    const auto likeness = [&](int lag) {
        double product = 0, here = 1, there = 1;
        for (int i = 0; i < kLength; i += 3) {
            product += 1.0 * sound[i] * sound[i + lag];
            here += 1.0 * sound[i] * sound[i];
            there += 1.0 * sound[i + lag] * sound[i + lag];
        }
        return here < 1e7 ? 0 : product / std::sqrt(here * there);
    };
    std::array<double, kLongest + 2> all{};
    for (int lag = kShortest - 1; lag <= kLongest + 1; ++lag)
        all[static_cast<std::size_t>(lag)] = likeness(lag);
    const double best = *std::ranges::max_element(all);
    for (std::size_t lag = kShortest; lag <= kLongest && best > 0.6; ++lag) // the first peak, not a multiple
        if (all[lag] > 0.9 * best && all[lag] >= all[lag - 1] && all[lag] >= all[lag + 1])
            return 1.0 * kSpeechRate / static_cast<double>(lag);
    return 0;
}

/// The energy of a long time in bands that are equally wide to the ear, 150 to 8000 Hz.
std::array<double, kBands> shapeOf(const std::vector<std::int16_t>& samples) {
    const auto mel = [](double hertz) { return std::log10(1 + hertz / 700); };
    std::array<double, kWindow> cosines{};
    for (std::size_t i = 0; i < kWindow; ++i)
        cosines[i] = std::cos(2 * std::numbers::pi * static_cast<double>(i) / kWindow);
    std::array<double, kBands> bands{};
    for (std::size_t at = 0; at + kWindow <= samples.size(); at += 2 * kWindow)
        for (std::size_t k = 2; k < kWindow / 2; ++k) {
            double real = 0, imaginary = 0;
            for (std::size_t i = 0; i < kWindow; ++i) {
                const double sample = samples[at + i] * (1 - cosines[i]);
                real += sample * cosines[k * i % kWindow];
                imaginary += sample * cosines[(k * i + kWindow / 4) % kWindow];
            }
            const double hertz = static_cast<double>(k) * kSpeechRate / kWindow;
            const double band = kBands * (mel(hertz) - mel(150)) / (mel(8'000) - mel(150));
            if (band >= 0 && band < kBands)
                bands[static_cast<std::size_t>(band)] += real * real + imaginary * imaginary;
        }
    double mean = 0;
    for (double& band : bands)
        mean += (band = 10 * std::log10(band + 1)) / kBands;
    for (double& band : bands)
        band -= mean;
    return bands;
}

Voice hear(const std::string& name, long language, const char* text) {
    std::ifstream file(BROVIN_CHARACTERS "/" + name + ".acs", std::ios::binary);
    const auto data = character::readCharacter(character::SharedBytes(
        std::vector<std::uint8_t>{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}));
    if (!data || !data->voice)
        return {};
    VoiceChoice choice(*data, "en-us");
    EXPECT_TRUE(choice.setLanguageId(language));
    auto runs = runsOf(text);
    for (auto& run : runs) {
        run.style.wordsPerMinute = data->voice->wordsPerMinute;
        run.style.pitchHertz = data->voice->pitchHertz;
    }
    const Synthesis made = synthesise(choice, runs);
    Voice voice;
    std::vector<double> pitches;
    for (std::size_t at = 0; at + 1'400 < made.samples.size(); at += 882)
        if (const double hertz = pitchAt(&made.samples[at]); hertz > 0)
            pitches.push_back(hertz);
    std::ranges::sort(pitches);
    if (!pitches.empty()) {
        voice.hertz = pitches[pitches.size() / 2];
        voice.melody = semitones(pitches[pitches.size() / 4], pitches[pitches.size() * 3 / 4]);
    }
    const auto words =
        std::ranges::count_if(made.events, [](const SpeechEvent& e) { return e.what.index() == 0; });
    voice.wordsPerMinute = 60.0 * static_cast<double>(words * kSpeechRate) /
                           static_cast<double>(std::max<std::int64_t>(made.lastSound(), 1));
    int loudest = 1;
    for (const std::int16_t sample : made.samples)
        loudest = std::max(loudest, std::abs(sample));
    voice.peak = 20 * std::log10(loudest / 32'768.0);
    voice.shape = shapeOf(made.samples);
    return voice;
}

TEST(Voices, canBeToldApart) {
    for (const auto& [language, text] : kTexts) {
        std::vector<Voice> voices;
        for (const char* const name : kNames) {
            const Voice& voice = voices.emplace_back(hear(name, language, text));
            std::printf("| %04lx | %s | %.0f Hz | %.1f | %.0f | %.1f dB |\n", language, name, voice.hertz,
                        voice.melody, voice.wordsPerMinute, voice.peak);
            EXPECT_LT(voice.peak, kHighestPeak) << name << ' ' << language;
            for (std::size_t i = 0; i + 1 < voices.size(); ++i) {
                double sum = 0;
                for (std::size_t band = 0; band < kBands; ++band)
                    sum += std::pow(voice.shape[band] - voices[i].shape[band], 2);
                const double apart = std::sqrt(sum / kBands);
                const double pitch = std::abs(semitones(voice.hertz, voices[i].hertz));
                std::printf("|  | to %s | %.1f semitones | %.1f dB |\n", kNames[i], pitch, apart);
                EXPECT_GE(apart, kSpectrumApart) << name << ", " << kNames[i] << ' ' << language;
                EXPECT_GE(pitch, kPitchApart) << name << ", " << kNames[i] << ' ' << language;
            }
        }
        EXPECT_LT(voices.back().melody, kMonotone) << "the robot is a monotone";
    }
}

} // namespace
} // namespace brovin::voice
