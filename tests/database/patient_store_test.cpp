#include "database/patient_store.h"

#include <future>
#include <gtest/gtest.h>

namespace {

/// A server that falls silent, as long as the test wants it to.
struct SilentServer
{
    std::promise<void> speaks;
    std::shared_future<void> answer = speaks.get_future().share();
    std::promise<void> closed;
};

class SilentStore : public Store
{
public:
    explicit SilentStore(SilentServer& server) : m_server(server) {}
    ~SilentStore() override { m_server.closed.set_value(); }
    Recordset Run(const Sql& sql) override
    {
        if (sql.isEmpty())
            m_server.answer.wait();
        return {};
    }
    void BeginUnit() override { m_inUnit = true; }
    void CommitUnit() override { throw StoreError{7, "full"}; }
    void RollbackUnit() override { m_inUnit = false; }
    bool inUnit() const override { return m_inUnit; }

private:
    SilentServer& m_server;
    bool m_inUnit = false;
};

constexpr std::chrono::seconds kLong(3600);

std::string Refusal(Store& store, void (*question)(Store&))
{
    try {
        question(store);
        return {};
    } catch (const StoreError& error) {
        return error.description.toStdString();
    }
}

} // namespace

TEST(PatientStore, AnswersAsItsStoreDoes)
{
    SilentServer server;
    auto store = OpenPatiently([&] { return std::make_unique<SilentStore>(server); }, {kLong, kLong});
    store->BeginUnit();
    EXPECT_TRUE(store->inUnit());
    EXPECT_EQ(Refusal(*store, [](Store& s) { s.CommitUnit(); }), "full");
    store->RollbackUnit();
    EXPECT_FALSE(store->inUnit());
    EXPECT_FALSE(store->isLost());
    store.reset();
    EXPECT_EQ(server.closed.get_future().wait_for(std::chrono::seconds(0)), std::future_status::ready);
    EXPECT_THROW(OpenPatiently(
                     []() -> std::unique_ptr<Store> {
                         throw StoreError{1, "no"};
                     },
                     {kLong, kLong}),
                 StoreError);
}

TEST(PatientStore, IsLeftBehindWhenItDoesNotAnswer)
{
    SilentServer server;
    auto store = OpenPatiently([&] { return std::make_unique<SilentStore>(server); }, {kLong, std::chrono::seconds(0)});
    EXPECT_EQ(Refusal(*store, [](Store& s) { s.Run({}); }), kSlowServer);
    EXPECT_TRUE(store->isLost());
    EXPECT_FALSE(store->inUnit());
    EXPECT_EQ(Refusal(*store, [](Store& s) { s.BeginUnit(); }), kSlowServer);
    store.reset(); // does not wait for it either
    server.speaks.set_value();
    server.closed.get_future().wait();
}
