// SPDX-License-Identifier: MIT
// Queries of an external directory, which the server makes.

#include <array>

#include <zerdix/telebook.h>

#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::alpha_id;
using rpc::by_object;
using rpc::user_id;
using rpc::whole_field;
namespace proc = rpc::proc;

namespace {

using parameters = std::array<const char*, 10>;

o_query_ext_i query_request(const char* tbookid, const parameters& given) {
    o_query_ext_i request{alpha_id(), user_id(), whole_field<10>(tbookid), {}};
    for (std::size_t i = 0; i < given.size(); ++i)
        request.params[i] = whole_field<80>(given[i]);
    return request;
}

} // namespace

// The only operation that tells its caller the status of a call that failed.
std::int32_t TELEBOOK::queryExternTBook(const char* tbookid, const char* p0, const char* p1,
                                        const char* p2, const char* p3, const char* p4,
                                        const char* p5, const char* p6, const char* p7,
                                        const char* p8, const char* p9) {
    o_query_ext_i request = query_request(tbookid, {p0, p1, p2, p3, p4, p5, p6, p7, p8, p9});
    client* handle = by_object{pClient}.handle();
    if (handle == nullptr)
        return rpc::no_client;
    const std::int32_t* query = wire::stub<proc::a_query_ext_1>(request, handle);
    if (query != nullptr)
        return *query;
    const rpc::call_error error = rpc::settle_failed_call(handle);
    pClient = rpc::session().pclient;
    return -static_cast<std::int32_t>(error.status);
}

// What was fetched before goes in any case, also when there is no handle to fetch with.
a_fetch_result_o* TELEBOOK::fetchExternTBookResult(std::int32_t query) {
    pFetchResult.reset();
    return rpc::fetch<proc::a_fetch_result_1>(by_object{pClient}, query, pFetchResult);
}
