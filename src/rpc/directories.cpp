// SPDX-License-Identifier: MIT
// The server's directories: users, user groups, printers and scanners.
//
// Users and printers come in three ways: a block, all blocks gathered as copies, and everything in
// one call. A gathered list owns its copies; the other lists point into the answers.

#include <string>

#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/fields.h"
#include "rpc/gathered_list.h"
#include "rpc/list.h"

using namespace zerdix;
using rpc::block_to_gather;
using rpc::by_session;
using rpc::or_empty;
using rpc::session;
using rpc::trace_lines;
using rpc::whole_field;
namespace proc = rpc::proc;

namespace {

// The key by which a record is asked for again.
std::string key_of(const o_user_rec& user) {
    return std::string{user.userid.view()} + '\0' + std::string{user.alphaid.view()};
}

// Whether the session's user is among the members, on the session's server.
bool has_user(const a_get_members_o& members) {
    std::int32_t left = members.count;
    for (const auto* node = members.first; node != nullptr && left > 0; node = node->next, --left)
        if (node->member.userid == session().str10UserId &&
            node->member.alphaid == session().str35AlphaServer)
            return true;
    return false;
}

} // namespace

PTRLIST* ZERDIX::getUserList() {
    const trace::operation traced{trace_lines, "ZERDIX::getUserList()",
                                  "<-- ZERDIX::getUserList()"};
    const auto next_block = [this](const o_user_rec* last) -> PTRLIST* {
        if (last == nullptr)
            return getUserListB("", "", block_to_gather());
        const std::string userid{last->userid.view()}, alphaid{last->alphaid.view()};
        trace_lines.info("ZERDIX::getUserList(): get next %ld user list entries from %s:%s",
                         block_to_gather(), userid.c_str(), alphaid.c_str());
        PTRLIST* block = getUserListB(userid.c_str(), alphaid.c_str(), block_to_gather());
        if (block != nullptr)
            trace_lines.info("ZERDIX::getUserList(): Number of loaded user list entries %ld",
                             block->getSize());
        return block;
    };
    if (rpc::gather<o_user_rec>(pUserList, next_block, key_of) == nullptr) {
        trace_lines.error("ZERDIX::getUserList(): Error returned from getUserListB()");
        return nullptr;
    }
    traced.exit("--> ZERDIX::getUserList(): Number of all loaded user list entries %ld",
                pUserList->getSize());
    return pUserList.get();
}

PTRLIST* ZERDIX::_getUserList() {
    const by_session caller{"ZERDIX::_getUserList()"};
    if (rpc::fetch_list<proc::a_get_users_1>(caller, {}, pUsersResult, pUserList) == nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::_getUserList(): Number of Users: %ld\n", pUserList->getSize());
    return pUserList.get();
}

PTRLIST* ZERDIX::getUserListB(const char* userid, const char* alphaid, std::int32_t number) {
    const by_session caller{"ZERDIX::getUserListB()",
                            "<-- ZERDIX::getUserListB(): userid: <%s> alphaid: <%s> number: (%ld)",
                            or_empty(userid), or_empty(alphaid), number};
    if (rpc::fetch_list<proc::a_get_usersb_1>(
            caller, {whole_field<10>(userid), whole_field<35>(alphaid), number}, pUserBlockResult,
            pUserBlock) == nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::getUserListB(): Number of Users: %ld\n", pUserBlock->getSize());
    return pUserBlock.get();
}

PTRLIST* ZERDIX::getUserGroups() {
    const by_session caller{"ZERDIX::getUserGroups()"};
    if (rpc::fetch_list<proc::a_get_groups_1>(caller, {}, pGroupsResult, pUserGroups) == nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::getUserGroups(): Number of User Groups: %ld", pUserGroups->getSize());
    return pUserGroups.get();
}

std::int32_t ZERDIX::clsSearchUserInGroup(const char* groupid) {
    const by_session caller{"ZERDIX::clsSearchUserInGroup()"};
    client* handle = caller.handle();
    if (handle == nullptr)
        return rpc::no_client;
    auto* members = rpc::call<proc::a_get_members_1>(caller, handle, whole_field<10>(groupid));
    if (members == nullptr)
        return rpc::call_failed;
    const std::int32_t rc = has_user(*members) ? rpc::success : rpc::refused;
    wire::release(*members);
    caller.exit("--> ZERDIX::clsSearchUserInGroup(): User in Group: rc = %ld", rc);
    return rc;
}

PTRLIST* ZERDIX::getPrinterList() {
    const trace::operation traced{trace_lines, "ZERDIX::getPrinterList()",
                                  "<-- ZERDIX::getPrinterList()"};
    const auto next_block = [this](const a_printer_rec* last) -> PTRLIST* {
        if (last == nullptr)
            return getPrinterListB("", block_to_gather());
        const std::string printerid{last->printerid.view()};
        trace_lines.info("ZERDIX::getPrinterList(): get next %ld printer list entries from %s",
                         block_to_gather(), printerid.c_str());
        PTRLIST* block = getPrinterListB(printerid.c_str(), block_to_gather());
        if (block != nullptr)
            trace_lines.info("ZERDIX::getPrinterList(): Number of loaded printer list entries %ld",
                             block->getSize());
        return block;
    };
    const auto key = [](const a_printer_rec& printer) {
        return std::string{printer.printerid.view()};
    };
    if (rpc::gather<a_printer_rec>(pPrinterList, next_block, key) == nullptr) {
        trace_lines.error("ZERDIX::getPrinterList(): Error returned from getPrinterListB()");
        return nullptr;
    }
    traced.exit("--> ZERDIX::getPrinterList(): Number of all loaded printer list entries %ld",
                pPrinterList->getSize());
    return pPrinterList.get();
}

PTRLIST* ZERDIX::_getPrinterList() {
    const by_session caller{"ZERDIX::_getPrinterList()"};
    if (rpc::fetch_list<proc::a_get_printers_1>(caller, {}, pPrintersResult, pPrinterList) ==
        nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::_getPrinterList(): Number of Printers: %ld", pPrinterList->getSize());
    return pPrinterList.get();
}

PTRLIST* ZERDIX::getPrinterListB(const char* printerid, std::int32_t number) {
    const by_session caller{"ZERDIX::getPrinterListB()",
                            "<-- ZERDIX::getPrinterListB(): Printer: <%s> number: (%ld)",
                            or_empty(printerid), number};
    if (rpc::fetch_list<proc::a_get_printersb_1>(caller, {whole_field<10>(printerid), number},
                                                 pPrinterBlockResult, pPrinterBlock) == nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::getPrinterListB(): Number of Printers: %ld\n",
                pPrinterBlock->getSize());
    return pPrinterBlock.get();
}

PTRLIST* ZERDIX::getFreeScanners(std::int32_t selector) {
    const by_session caller{"ZERDIX::getFreeScanners()"};
    if (rpc::fetch_list<proc::a_get_freescanners_1>(caller, selector, pFreeScannersResult,
                                                    pScannerList) == nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::getFreeScanners(): Number of free scanners: %ld",
                pScannerList->getSize());
    return pScannerList.get();
}

PTRLIST* ZERDIX::getAllScanners(std::int32_t selector) {
    const by_session caller{"ZERDIX::getAllScanners()"};
    if (rpc::fetch_list<proc::a_get_scanners_1>(caller, selector, pAllScannersResult,
                                                pScannerList) == nullptr)
        return nullptr;
    caller.exit("--> ZERDIX::getAllScanners(): Number of scanners: %ld", pScannerList->getSize());
    return pScannerList.get();
}
