# SPDX-License-Identifier: GPL-3.0-or-later
"""Every way this engine knows to reach the network, from every place a script or an element can stand in. Each pair has
an address of this machine to itself, 127.REALM.CHANNEL.1, so that a trace of the system calls names what got out."""

import json
import re

# Statements of a script. HOST is the address with a port, NAME a name that only a look-up of names would meet.
CODE = {
    "fetch": "fetch('http://HOST/',{mode:'no-cors'})",
    "fetch-https": "fetch('https://HOST/',{mode:'no-cors'})",
    "fetch-keepalive": "fetch('http://HOST/',{mode:'no-cors',method:'POST',body:'x',keepalive:true})",
    "fetch-name": "fetch('http://NAME/',{mode:'no-cors'})",
    "fetch-own-scheme": "for (const s of ['web','page','part']) fetch('kevra-'+s+'://HOST/')",
    "xhr": "const x=new XMLHttpRequest(); x.open('GET','http://HOST/'); x.send()",
    "xhr-own-scheme": "const x=new XMLHttpRequest(); x.open('GET','kevra-web://HOST/'); x.send()",
    "events": "new EventSource('http://HOST/')",
    "beacon": "navigator.sendBeacon('http://HOST/','x')",
    "socket": "new WebSocket('ws://HOST/')",
    "socket-secure": "new WebSocket('wss://HOST/')",
    "transport": "new WebTransport('https://HOST/')",
    "peer-stun": "const p=new RTCPeerConnection({iceServers:[{urls:'stun:HOST'}]}); p.createDataChannel('x');"
                 "p.createOffer().then(o=>p.setLocalDescription(o))",
    "peer-turn": "const p=new RTCPeerConnection({iceTransportPolicy:'relay',iceServers:[{urls:'turn:HOST?transport=tcp',"
                 "username:'a',credential:'b'}]}); p.createDataChannel('x');"
                 "p.createOffer().then(o=>p.setLocalDescription(o))",
    "peer-candidate": "const p=new RTCPeerConnection(); p.createDataChannel('x'); p.createOffer().then(async o=>{"
                      "await p.setLocalDescription(o); const q=new RTCPeerConnection();"
                      "await q.setRemoteDescription(o); const a=await q.createAnswer(); await q.setLocalDescription(a);"
                      "await p.setRemoteDescription(a); p.addIceCandidate({sdpMid:'0',candidate:"
                      "'candidate:1 1 udp 2122260223 ADDRESS PORT typ host'})})",
    "import": "import('http://HOST/x.mjs')",
    "import-scripts": "importScripts('http://HOST/')",
    "image": "new Image().src='http://HOST/'",
    "audio": "new Audio('http://HOST/').play()",
    "font": "const f=new FontFace('q','url(http://HOST/)'); f.load()",
    "worker": "new Worker('http://HOST/')",
    "worker-shared": "new SharedWorker('http://HOST/')",
    "worker-service": "navigator.serviceWorker.register('http://HOST/')",
    "worklet": "CSS.paintWorklet.addModule('http://HOST/')",
    "worklet-audio": "new AudioContext().audioWorklet.addModule('http://HOST/')",
    "cache": "caches.open('x').then(c=>c.add('http://HOST/'))",
    "open": "open('http://HOST/')",
    "form": "const f=document.createElement('form'); f.method='post'; f.action='http://HOST/';"
            "f.target='_blank'; document.body.append(f); f.submit()",
}

# Elements. They work wherever there is a document.
MARKUP = {
    **{rel: f"<link rel={rel} href='http://HOST/'>" for rel in (
        "prefetch", "preconnect", "dns-prefetch", "modulepreload", "stylesheet", "icon", "manifest", "prerender",
        "import", "search", "amphtml", "next")},
    "preconnect-https": "<link rel=preconnect href='https://HOST/'>",
    "dns-name": "<meta http-equiv=x-dns-prefetch-control content=on><link rel=dns-prefetch href='//NAME'>"
                "<link rel=preconnect href='http://p.NAME'><a href='http://a.NAME'>a</a>",
    **{f"preload-{kind}": f"<link rel=preload as={kind} href='http://HOST/'>" for kind in (
        "image", "style", "script", "font", "fetch", "track")},
    "speculation": "<script type=speculationrules>{\"prefetch\":[{\"source\":\"list\",\"urls\":[\"http://HOST/\"]}]}"
                   "</script>",
    "style-import": "<style>@import 'http://HOST/';</style>",
    "style-image": "<p style=\"background:url(http://HOST/)\">x</p>",
    "style-font": "<style>@font-face{font-family:qID;src:url(http://HOST/)}</style><p style='font-family:qID'>x</p>",
    "script": "<script src='http://HOST/'></script>",
    "image": "<img src='http://HOST/'>", "image-https": "<img src='https://HOST/'>",
    "image-set": "<img srcset='http://HOST/ 1x'>", "image-svg": "<svg><image href='http://HOST/'/></svg>",
    "body": "<table background='http://HOST/'><td>x</table>", "button": "<input type=image src='http://HOST/'>",
    "video": "<video autoplay muted src='http://HOST/'></video>", "poster": "<video poster='http://HOST/'></video>",
    "track": "<video><track default src='http://HOST/'></video>",
    "object": "<object data='http://HOST/'></object>", "embed": "<embed src='http://HOST/'>",
    "frame": "<iframe src='http://HOST/'></iframe>",
    "report": "<iframe srcdoc=\"<meta http-equiv=content-security-policy content=&quot;img-src 'none'; report-uri "
              "http://HOST/&quot;><img src=x>\"></iframe>",
    "ping": "<a href='#' ping='http://HOST/' class=clicked>x</a>",
}


def quoted(text):
    """As a string of a script that may stand in an element."""
    return json.dumps(text).replace("</", "<\\/")


def with_code(code):
    return f"<script>{code}</script>"


def in_worker(maker, connect=""):
    return lambda code, _: with_code(f"const w={maker}(URL.createObjectURL(new Blob([{quoted(code)}])));{connect}")


def in_frame(source):
    """Code and elements in a frame: `source` says how the frame gets the text it shows."""
    return lambda code, markup: with_code(
        f"const f=document.createElement('iframe'), t={quoted(markup + with_code(code))}; {source};"
        "document.body.append(f)")


# What a script does where it stands, around the code and the elements of the channels.
REALMS = {
    "page": lambda code, markup: markup + with_code(code),
    "frame": lambda code, markup: "<iframe src='REALM.html'></iframe>",
    "about-blank": lambda code, markup: with_code(
        "const f=document.createElement('iframe'); document.body.append(f);"
        f"f.contentDocument.body.innerHTML={quoted(markup)}; f.contentWindow.eval({quoted(code)})"),
    "srcdoc": in_frame("f.srcdoc=t"),
    "blob": in_frame("f.src=URL.createObjectURL(new Blob([t],{type:'text/html'}))"),
    "data": in_frame("f.src='data:text/html,'+encodeURIComponent(t)"),
    "sandbox": in_frame("f.sandbox='allow-scripts'; f.srcdoc=t"),
    "worker": in_worker("new Worker"),
    "worker-nested": lambda code, markup: with_code(
        "new Worker(URL.createObjectURL(new Blob([%s])))" % quoted(
            "new Worker(URL.createObjectURL(new Blob([%s])))" % quoted(code))),
    "worker-shared": in_worker("new SharedWorker", "w.port.start()"),
    "worker-module": lambda code, markup: with_code(
        f"new Worker(URL.createObjectURL(new Blob([{quoted(code)}],{{type:'text/javascript'}})),{{type:'module'}})"),
    "worker-service": lambda code, markup: with_code(
        f"navigator.serviceWorker.register(URL.createObjectURL(new Blob([{quoted(code)}],{{type:'text/javascript'}})))"),
    "worklet": lambda code, markup: with_code(
        f"CSS.paintWorklet.addModule(URL.createObjectURL(new Blob([{quoted(code)}],{{type:'text/javascript'}})))"),
    "worklet-audio": lambda code, markup: with_code(
        f"new AudioContext().audioWorklet.addModule(URL.createObjectURL(new Blob([{quoted(code)}],"
        "{type:'text/javascript'})))"),
}

CHANNELS = list(CODE) + list(MARKUP)


def pages(port):
    """Page texts by file name; REALM.hostile is shown, REALM.html stands beside it."""
    found = {}
    for number, (realm, wrap) in enumerate(REALMS.items(), 1):
        def placed(channel, text):
            place = 1 + CHANNELS.index(channel)
            address = f"127.{number}.{place}.1"
            return (text.replace("HOST", f"{address}:{port}").replace("ADDRESS", address).replace("PORT", str(port))
                    .replace("NAME", f"c{place}r{number}.kevra.invalid").replace("ID", str(place)))
        code = "".join("try{(()=>{%s})()}catch(e){}" % placed(channel, text) for channel, text in CODE.items())
        markup = "".join(placed(channel, text) for channel, text in MARKUP.items())
        shown = wrap(code, markup).replace("REALM", realm)
        found[f"realm-{realm}.hostile"] = "<!doctype html><body>" + shown
        found[f"{realm}.html"] = markup + with_code(code)
    return found


CALL = re.compile(r"(connect|sendto|sendmsg|sendmmsg)\(.*?sa_family=AF_INET6?, sin6?_port=htons\((\d+)\).*?"
                  r"(?:inet_addr\(\"|inet_pton\(AF_INET6, \")([^\"]+)")


def who_got_out(trace):
    """The system calls of a trace with an address of the Internet, by what they were made for."""
    realms = list(REALMS)
    out = {}
    for line in trace:
        if found := CALL.search(line):
            call, port, address = found.groups()
            place = address.replace("::ffff:", "").split(".")
            if len(place) == 4 and place[0] == "127" and 0 < int(place[1]) <= len(realms):
                name = f"{realms[int(place[1]) - 1]}/{CHANNELS[int(place[2]) - 1]}"
            else:
                name = f"{address}:{port}"
            out.setdefault(name, []).append(call)
    return out
