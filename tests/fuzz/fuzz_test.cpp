// The fuzzing targets on their seeds and on a fixed number of mutations of them, the same every time. scripts/fuzz.sh
// looks further, led by coverage.

#include "fuzz/targets.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <random>

namespace {

struct Target
{
    const char* name; // of its folder of seeds
    FuzzTarget run;
    int mutations;
};

const Target kTargets[] = {
    {"handover", FuzzHandover, 2000},
    {"statement", FuzzStatement, 20000},
    {"bill_file", FuzzBillFile, 20000},
};

class FuzzTargets : public testing::TestWithParam<Target>
{};

std::vector<QByteArray> Seeds(const char* name)
{
    std::vector<QByteArray> seeds;
    const QDir folder(QString(FUZZ_CORPUS) + "/" + name);
    for (const QString& entry : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(entry));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        seeds.push_back(file.readAll());
    }
    return seeds;
}

class Mutator
{
public:
    explicit Mutator(const std::vector<QByteArray>& seeds) : m_seeds(seeds) {}

    QByteArray Next()
    {
        QByteArray bytes = m_seeds[Below(m_seeds.size())];
        for (size_t changes = 1 + Below(5); changes > 0; --changes)
            Change(bytes);
        return bytes;
    }

private:
    size_t Below(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(m_dice); }

    void Change(QByteArray& bytes)
    {
        const QByteArray& other = m_seeds[Below(m_seeds.size())];
        const auto at = static_cast<qsizetype>(Below(static_cast<size_t>(bytes.size()) + 1));
        const auto length = static_cast<qsizetype>(Below(20));
        switch (Below(5)) {
        case 0:
            bytes.truncate(at);
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(at, static_cast<char>(Below(256)));
            break;
        case 3:
            bytes.replace(at, 1, QByteArray(1, static_cast<char>(Below(256))));
            break;
        default:
            bytes.insert(at, other.mid(static_cast<qsizetype>(Below(static_cast<size_t>(other.size()) + 1)), length));
        }
    }

    const std::vector<QByteArray>& m_seeds;
    std::mt19937 m_dice{1};
};

TEST_P(FuzzTargets, TakeWhateverTheyAreGiven)
{
    const std::vector<QByteArray> seeds = Seeds(GetParam().name);
    ASSERT_FALSE(seeds.empty());
    const auto feed = [](const QByteArray& bytes) {
        GetParam().run(reinterpret_cast<const uint8_t*>(bytes.constData()), static_cast<size_t>(bytes.size()));
    };
    for (const QByteArray& seed : seeds)
        feed(seed);
    Mutator mutator(seeds);
    for (int i = 0; i < GetParam().mutations; ++i)
        feed(mutator.Next());
}

INSTANTIATE_TEST_SUITE_P(, FuzzTargets, testing::ValuesIn(kTargets),
                         [](const auto& target) { return target.param.name; });

} // namespace
