// SPDX-License-Identifier: MIT
// Opens the gallery on 10,000 pictures in turns with a bare window that shows the first of them, then steps
// through pictures of 12 megapixels in turns with their plain decoding at the size that is shown.
// Usage: bench_gallery PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints median wall nanoseconds: "bare", "gallery", "decode" and "step"; and in kB "picture-kB", the pixels
// of one such picture, and "memory-kB", by how much the peak of the resident memory has grown.
#include "Repaints.h"
#include "RoundsMain.h"
#include "Samples.h"

#include <QImageReader>
#include <QPainter>
#include <cinttypes>
#include <filesystem>
#include <map>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>

namespace torvane::bench {

namespace {
constexpr int files = 10'000;
constexpr QSize large(4000, 3000);
constexpr QRect preview(268, 27, 220, 154); // the place of the picture in the window

std::string nameOf(const std::string& folder, int number, const char* extension) {
    char name[32];
    std::snprintf(name, sizeof name, "/%05d.%s", number, extension);
    return folder + name;
}

bool makeLarge(const std::string& path) {
    QImage image(large, QImage::Format_RGB32);
    quint32 noise = 1;
    for (int y = 0; y < large.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < large.width(); ++x) {
            noise = noise * 1664525 + 1013904223;
            line[x] = qRgb((x / 16 + static_cast<int>(noise >> 28)) & 0xFF, (y / 12) & 0xFF, (x ^ y) & 0xFF);
        }
    }
    return image.save(QString::fromStdString(path), "JPG", 90);
}

// The small pictures are one file with many names, and the last two are large. Another process makes them,
// since what it needs of memory is not to be counted.
void makePictures(const std::string& folder) {
    std::filesystem::create_directories(folder);
    const pid_t child = fork();
    if (child == 0) {
        const std::string first = nameOf(folder, 0, "jpg");
        QImage small(QSize(160, 144), QImage::Format_RGB32);
        small.fill(Qt::darkGreen);
        bool isMade = small.save(QString::fromStdString(first), "JPG");
        for (int i = 1; i < files - 2; ++i) {
            std::filesystem::create_hard_link(first, nameOf(folder, i, "jpg"));
        }
        for (int i = files - 2; i < files; ++i) isMade = makeLarge(nameOf(folder, i, "jpg")) && isMade;
        _exit(isMade ? 0 : 1);
    }
    int status = 0;
    mustHold(child > 0 && waitpid(child, &status, 0) == child && status == 0);
}

// The least that shows the same: the background and the first picture.
class BareGallery : public QWidget {
public:
    explicit BareGallery(const std::string& picture)
        : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
          m_picture(QPixmap::fromImage(QImage(QString::fromStdString(picture)))) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFixedSize(494, 386);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawPixmap(0, 0, m_background);
        painter.drawPixmap(preview, m_picture);
    }

private:
    QPixmap m_background{QStringLiteral(":/art/Compartir.jpg")};
    QPixmap m_picture;
};

std::int64_t peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

class Gallery {
public:
    Gallery(Program& program, std::string folder) : m_program(program), m_folder(std::move(folder)) {}

    // The first round warms up.
    void takeOpening(int round) {
        sample("bare", round, [&] {
            BareGallery window(nameOf(m_folder, 0, "jpg"));
            Repaints repaints(window);
            window.show();
            repaints.awaitOne();
        });
        sample("gallery", round, [&] {
            m_program.desk.go(Window::MainFrm, Window::Compartir);
            Repaints repaints(window());
            window().Image1.update();
            repaints.awaitOne();
        });
        mustHold(window().Snap.rowCount() == files && !window().Image1.source().isNull());
        window().Unload();
        QApplication::processEvents();
    }
    void takeSteps(int rounds) {
        m_program.desk.go(Window::MainFrm, Window::Compartir);
        window().Snap.setCurrentRow(files - 2);
        window().Capturas.setListIndex(files - 2);
        Repaints repaints(window());
        repaints.awaitOne();
        m_memoryBefore = peakMemory();
        for (int round = 0; round <= rounds; ++round) takeStep(round, repaints);
        std::printf("memory-kB %" PRId64 "\npicture-kB %" PRId64 "\n", peakMemory() - m_memoryBefore,
                    std::int64_t{4} * large.width() * large.height() / 1024);
    }
    void print() const {
        for (const auto& [name, samples] : m_samples) std::printf("%s %" PRId64 "\n", name, median(samples));
    }

private:
    Compartir& window() const { return *m_program.loaded<Compartir>(); }

    // Back and forth between the two large pictures.
    void takeStep(int round, Repaints& repaints) {
        chameleonButton& button = round % 2 == 0 ? window().ChameleonButton7 : window().ChameleonButton6;
        const int shown = round % 2 == 0 ? files - 1 : files - 2;
        sample("decode", round, [&] {
            QImageReader reader(QString::fromStdString(nameOf(m_folder, shown, "jpg")), "jpg");
            reader.setScaledSize(preview.size() * window().devicePixelRatioF());
            mustHold(!reader.read().isNull());
        });
        sample("step", round, [&] {
            emit button.Click();
            repaints.awaitOne();
        });
        mustHold(window().Capturas.ListIndex() == shown && window().Datos.source().size() == large);
    }
    template <typename Work>
    void sample(const char* name, int round, const Work& work) {
        const std::int64_t time = timeOf(work);
        if (round > 0) m_samples[name].push_back(time);
    }

    Program& m_program;
    std::string m_folder;
    std::map<const char*, std::vector<std::int64_t>> m_samples;
    std::int64_t m_memoryBefore = 0;
};

void runGallery(ProgramUnderBench& bench, const std::string& programFolder, int rounds) {
    const std::string folder = programFolder + "/roms/data/screenshots";
    makePictures(folder);
    bench.startedMainWindow();
    Gallery gallery(bench.program, folder);
    for (int round = 0; round <= rounds; ++round) gallery.takeOpening(round);
    gallery.takeSteps(rounds);
    gallery.print();
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    return torvane::bench::measureInRounds(argc, argv, torvane::bench::runGallery);
}
