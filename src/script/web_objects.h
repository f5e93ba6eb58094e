// SPDX-License-Identifier: GPL-3.0-or-later
// Members of the objects that fetch from the web. Rows for host_objects.cpp, each table in ascending
// order of names.
#pragma once

#include "script/host_members.h"

namespace kevra::script::host_members {

inline constexpr Member xmlHttp[] = {
    {"abort", method, "", Value, "Ends the request."},
    {"getAllResponseHeaders", method, "", Value, "All headers of the answer."},
    {"getOption", method, "option", Value, "A setting."},
    {"getResponseHeader", method, "name", Value, "A header of the answer."},
    {"onreadystatechange", writeOnly, "", Value, "Called when the state changes."},
    {"onTimeout", writeOnly, "", Value, "Called when time has run out."},
    {"open", method, "method, url, [async], [user], [password]", Value, "Prepares a request."},
    {"overrideMimeType", method, "type", Value, "How the answer is read."},
    {"readyState", readOnly, "", Value, "4 when the answer is complete."},
    {"responseBody", readOnly, "", Value, "The answer as bytes."},
    {"responseStream", readOnly, "", Unknown, "The answer as a stream."},
    {"responseText", readOnly, "", Value, "The answer as text."},
    {"responseType", property, "", Value, "What kind of answer is wanted."},
    {"responseXML", readOnly, "", DomDocument, "The answer as a document."},
    {"send", method, "[body]", Value, "Sends the request."},
    {"setOption", method, "option, value", Value, "Changes a setting."},
    {"setProxy", method, "setting, [server], [bypass]", Value, "Which proxy is used."},
    {"setProxyCredentials", method, "user, password", Value, "The proxy's user and password."},
    {"setRequestHeader", method, "name, value", Value, "A header of the request."},
    {"setTimeouts", method, "resolve, connect, send, receive", Value, "Milliseconds for each part."},
    {"status", readOnly, "", Value, "The answer's number, such as 200."},
    {"statusText", readOnly, "", Value, "The answer's words, such as \"OK\"."},
    {"timeout", property, "", Value, "Milliseconds the request may take."},
    {"waitForResponse", method, "[seconds]", Value, "Waits for the answer."},
    {"withCredentials", property, "", Value, "Whether credentials go along."},
};

inline constexpr Member winHttp[] = {
    {"Abort", method, "", Value, "Ends the request."},
    {"GetAllResponseHeaders", method, "", Value, "All headers of the answer."},
    {"GetResponseHeader", method, "name", Value, "A header of the answer."},
    {"Open", method, "method, url, [async]", Value, "Prepares a request."},
    {"Option", property, "option", Value, "A setting."},
    {"ResponseBody", readOnly, "", Value, "The answer as bytes."},
    {"ResponseStream", readOnly, "", Unknown, "The answer as a stream."},
    {"ResponseText", readOnly, "", Value, "The answer as text."},
    {"Send", method, "[body]", Value, "Sends the request."},
    {"SetAutoLogonPolicy", method, "policy", Value, "When the user's own credentials go along."},
    {"SetClientCertificate", method, "certificate", Value, "The certificate to identify with."},
    {"SetCredentials", method, "user, password, for", Value,
        "User and password for server (0) or proxy (1)."},
    {"SetProxy", method, "setting, [server], [bypass]", Value, "Which proxy is used."},
    {"SetRequestHeader", method, "name, value", Value, "A header of the request."},
    {"SetTimeouts", method, "resolve, connect, send, receive", Value, "Milliseconds for each part."},
    {"Status", readOnly, "", Value, "The answer's number, such as 200."},
    {"StatusText", readOnly, "", Value, "The answer's words, such as \"OK\"."},
    {"WaitForResponse", method, "[seconds]", Value, "Waits for the answer."},
};

} // namespace kevra::script::host_members
