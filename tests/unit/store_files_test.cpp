// Which files the store opens, and which it leaves alone.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>

#include "desk/store/sqlite_connection.h"
#include "tests/unit/support/store_support.h"

namespace {

using namespace store_tests;
using desk::Store;

/// Why a file is not opened; empty if it is.
std::string complaint(const std::filesystem::path& file) {
    try {
        Store::open(file);
        return {};
    } catch (const automation::Failure& failure) {
        EXPECT_NE(std::string(failure.what()).find(file.string()), std::string::npos) << failure.what();
        return failure.what();
    }
}

std::string content(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

/// A database made by other means.
void make_database(const std::filesystem::path& file, const char* sql) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(file.string().c_str(), &handle), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(handle);
}

/// The one number that a query answers.
int number_in(const std::filesystem::path& file, const char* sql) {
    sqlite3* handle = nullptr;
    sqlite3_stmt* statement = nullptr;
    sqlite3_open(file.string().c_str(), &handle);
    sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr);
    const int number = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : -1;
    sqlite3_finalize(statement);
    sqlite3_close(handle);
    return number;
}

TEST(StoreFiles, WhatWasRemovedLeavesNothingBehind) {
    TemporaryFolder files;
    const auto file = files / "desk.db";
    {
        const auto store = Store::open(file);
        const desk::RowId folder = store->add_folder(folder_named(u"Inbox"));
        store->remove_item(store->add_item(folder, rich_item()));
        store->remove_item(store->add_item(folder, item_with_subject(u"x")));
    }
    EXPECT_EQ(number_in(file, "SELECT count(*) FROM attachments"), 0);
    EXPECT_EQ(number_in(file, "SELECT count(*) FROM keys"), 0);
    {
        const auto store = Store::open(file);
        Store::Transaction transaction(*store);
        const desk::RowId folder = store->add_folder(folder_named(u"Gone"));
        store->add_item(folder, rich_item());
        store->add_item(folder, item_with_subject(u"x"));
        store->remove_folder(folder);
        transaction.keep();
    }
    EXPECT_EQ(number_in(file, "SELECT count(*) FROM folders"), 1);
    EXPECT_EQ(number_in(file, "SELECT count(*) FROM items"), 0);
    EXPECT_EQ(number_in(file, "SELECT count(*) FROM attachments"), 0);
    EXPECT_EQ(number_in(file, "SELECT count(*) FROM keys"), 0);
}

TEST(StoreFiles, ANewFileIsMadeAndAnEmptyOneTaken) {
    TemporaryFolder files;
    EXPECT_EQ(complaint(files / "new.db"), "");
    EXPECT_EQ(complaint(files / "new.db"), "");
    write(files / "empty.db", "");
    EXPECT_EQ(complaint(files / "empty.db"), "");
}

TEST(StoreFiles, NamesOfFilesMayHoldAnyLetters) {
    TemporaryFolder files;
    const std::filesystem::path file = (files / "x").parent_path() / u8"caf\u00E9 \u0416.db";
    Store::open(file)->add_folder(folder_named(u"kept"));
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(Store::open(file)->folders().size(), 1u);
}

TEST(StoreFiles, AFileThatIsNoDatabaseIsRefusedAndLeftAlone) {
    TemporaryFolder files;
    for (const std::string& bytes : {std::string("short"), std::string(5000, 'x')}) {
        write(files / "text.txt", bytes);
        EXPECT_NE(complaint(files / "text.txt"), "");
        EXPECT_EQ(content(files / "text.txt"), bytes);
    }
}

TEST(StoreFiles, AnotherProgramsDatabaseIsRefusedAndLeftAlone) {
    TemporaryFolder files;
    for (const char* sql :
         {"CREATE TABLE t(x)", "PRAGMA application_id = 5", "CREATE TABLE t(x); PRAGMA user_version = 1"}) {
        const auto file = files / "other.db";
        std::filesystem::remove(file);
        make_database(file, sql);
        const std::string before = content(file);
        EXPECT_NE(complaint(file).find("is not a database of the desk"), std::string::npos) << sql;
        EXPECT_EQ(content(file), before) << sql;
    }
}

TEST(StoreFiles, AnotherVersionIsRefused) {
    TemporaryFolder files;
    Store::open(files / "desk.db");
    make_database(files / "desk.db", "PRAGMA user_version = 99");
    EXPECT_NE(complaint(files / "desk.db").find("another version"), std::string::npos);
}

TEST(StoreFiles, AFolderAndAMissingFolderAreRefused) {
    TemporaryFolder files;
    EXPECT_NE(complaint(files / "."), "");
    EXPECT_NE(complaint(files / "missing/desk.db"), "");
}

TEST(StoreFiles, ATruncatedFileIsRefused) {
    TemporaryFolder files;
    Store::open(files / "desk.db")->add_folder(folder_named(u"x"));
    const std::string whole = content(files / "desk.db");
    for (const std::size_t size :
         {std::size_t{2}, std::size_t{99}, std::size_t{4096}, whole.size() - 4096, whole.size() - 1}) {
        write(files / "cut.db", whole.substr(0, size));
        EXPECT_NE(complaint(files / "cut.db"), "") << size;
    }
    write(files / "cut.db", whole);
    EXPECT_EQ(complaint(files / "cut.db"), "");
}

TEST(StoreFiles, AFileInUseIsRefused) {
    TemporaryFolder files;
    const auto first = Store::open(files / "desk.db");
    EXPECT_NE(complaint(files / "desk.db").find("locked"), std::string::npos);
    first->add_folder(folder_named(u"still works"));
}

TEST(StoreFiles, AFileInUseIsWaitedForAndADamagedOneIsNot) {
    TemporaryFolder files;
    auto first = Store::open(files / "desk.db");
    int waits = 0;
    const auto opened = Store::open_when_free(files / "desk.db", [&] {
        first.reset();
        return ++waits < 2;
    });
    EXPECT_TRUE(opened);
    EXPECT_EQ(waits, 1);

    EXPECT_THROW(Store::open_when_free(files / "desk.db", [] { return false; }), automation::Failure);

    write(files / "damaged.db", std::string(5000, 'x'));
    waits = 0;
    EXPECT_THROW(Store::open_when_free(files / "damaged.db", [&] { return ++waits < 3; }),
                 automation::Failure);
    EXPECT_EQ(waits, 0) << "it will not be better later";
}

TEST(Statements, NoBytesAreNotNull) {
    desk::SqliteConnection connection(":memory:");
    desk::Statement statement(connection, "SELECT ?1 IS NULL");
    auto rows = statement.rows(std::string_view());
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.integer(0), 0);
}

}  // namespace
