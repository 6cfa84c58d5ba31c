// SPDX-License-Identifier: MIT
// The output of a command on standard output: a table or a list of properties, or the same
// as JSON.
//
// The data are JSON objects in either case, so that both forms say the same. Text is UTF-8. Times
// are ISO 8601 (iso_time).
#ifndef ZERDIX_APP_OUTPUT_REPORT_H
#define ZERDIX_APP_OUTPUT_REPORT_H

#include <string>
#include <vector>

#include "output/json.h"

namespace zerdix::app {

struct column {
    const char* key;     // of the JSON objects
    const char* heading; // of the table, or what stands before the property
};

class report {
  public:
    // `as_json`: one JSON value in all. `quiet`: sentences are left out.
    report(bool as_json, bool quiet) : json_(as_json), quiet_(quiet) {}

    bool is_json() const { return json_; }
    bool is_quiet() const { return quiet_; }

    // A row for each object of the array; columns that an object lacks stay empty. Numbers stand to
    // the right. JSON has every member, the table the columns alone. `none` is the sentence for an
    // empty array, such as "no printers".
    void rows(const json& objects, const std::vector<column>& columns,
              const std::string& none) const;

    // A line for each property.
    void properties(const json& object, const std::vector<column>& columns) const;

    // What was done, such as "document 17 deleted"; as JSON the object.
    void done(const std::string& sentence, const json& object = json::object()) const;

  private:
    bool json_;
    bool quiet_;
};

} // namespace zerdix::app

#endif
