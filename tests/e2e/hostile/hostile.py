#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows pages that mean harm in the preview and counts what they achieve. A server on this machine stands for the
web: not even a connection may reach it, and no process of the editor may call the system with an address of the
Internet. Usage: hostile.py HARNESS"""

import base64
import os
import socket
import sys
import tempfile
import urllib.parse

import channels
from harness import PAGE, Run, Sink, greedy, running, slowest

RUNS = 4  # at the same time; most of a page's time is waiting
SLOWEST = 2000  # ms for the way back, with several editors and their traces at once; floods.py has the bound of one
SECRET = "document.title = 'TOP-SECRET'"
PARTS = "picture style script module frame"
BIG = "style='display:block;width:500px;height:300px;background:#ddd'"


# What stands beside every page. PICTURE is one blue pixel.
PICTURE = base64.b64decode("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR4nGNgYPgPAAEDAQAIicLsAAAAAElFTkSuQmCC")
SITE = {
    "beside.txt": SECRET, "beside.css": "p { width: 55px } q { content: 'TOP-SECRET' }", "beside.js": "var loaded = 1",
    "beside.mjs": "export const loaded = 1", "beside.json": '{"secret": "TOP-SECRET"}', "beside.png": PICTURE,
    "beside.html": "TOP-SECRET<script>top.postMessage('frame', '*')</script>",
}


def pages(web, secret):
    secure = web.replace("http", "https")

    def link(href, more=""):
        return f"<a href='{href}' {more} {BIG}>go</a>"

    def script(code):
        return f"<body><script>{code}</script>"

    def reads(code):
        return script("const tell = t => document.title = t; " + code)

    return {
        "link": link(web), "link-fragment": link("#x"), "link-blank": link(web, "target=_blank"),
        "link-local": link(secret), "link-javascript": link("javascript:location=%22" + web + "%22"),
        "link-mailto": link("mailto:a@example.org"), "link-scheme": link("kevra-unknown:x"),
        "link-download": link(web, "download"), "link-ping": link("#", f"ping='{web}'"),
        "link-scripted": link("#", f"onclick='location=\"{web}\"'"),
        "open": script(f"open('{web}')"),
        "open-click": f"<div {BIG} onclick=\"open('{web}')\">go</div>",
        "location": script(f"location='{web}'"),
        "location-timer": script(f"setTimeout(()=>location='{web}', 300)"),
        "location-local": script(f"location='{secret}'"),
        "location-data": script("location='data:text/html,x'"),
        "refresh-0": f"<meta http-equiv=refresh content='0;url={web}'>",
        "refresh-1": f"<meta http-equiv=refresh content='1;url={web}'>",
        "form-get": f"<form action='{web}'><input name=a value=b></form><script>document.forms[0].submit()</script>",
        "form-click": f"<form action='{web}'><button {BIG}>go</button></form>",
        "form-post": f"<form method=post action='{web}'></form><script>document.forms[0].submit()</script>",
        "frame-remote": f"<iframe src='{web}'></iframe>",
        "frame-local": f"<iframe src='{secret}' onload='try {{document.title=this.contentDocument.body.innerText}}"
                       " catch (e) {}'></iframe>",
        "frame-link": f"<iframe srcdoc=\"{link(web)}\" style='position:absolute;left:0;top:0;width:600px;"
                      "height:400px'></iframe>",
        "frame-refresh": f"<iframe srcdoc=\"<meta http-equiv=refresh content='1;url={web}'>\"></iframe>",
        "frame-moves": f"<iframe srcdoc='x'></iframe><script>setTimeout(()=>frames[0].location='{web}', 500)</script>",
        "frame-top": f"<iframe srcdoc=\"<script>top.location='{web}'</script>\"></iframe>",
        "fetch-local": reads(f"fetch('{secret}').then(r=>r.text()).then(tell)"),
        "fetch-beside": reads("fetch('beside.txt').then(r=>r.text()).then(tell)"),
        "fetch-web": reads(f"fetch('{web}',{{mode:'no-cors'}})"),
        "xhr-local": reads(f"const x=new XMLHttpRequest; x.open('GET','{secret}'); x.onload=()=>tell(x.responseText);"
                           " x.send()"),
        "xhr-beside": reads("const x=new XMLHttpRequest; x.open('GET','beside.txt'); x.onload=()=>"
                            "tell(x.responseText); x.send()"),
        "xhr-web": reads(f"const x=new XMLHttpRequest; x.open('POST','{web}'); x.send('x')"),
        "script-local": f"<script src='{secret}'></script>", "style-local": f"<link rel=stylesheet href='{secret}'>",
        "socket": script(f"new WebSocket('{web.replace('http', 'ws')}')"),
        "worker": script(f"new Worker(URL.createObjectURL(new Blob([\"fetch('{web}',{{mode:'no-cors'}});"
                         f"new WebSocket('{web.replace('http', 'ws')}')\"])))"),
        "events": script(f"new EventSource('{web}')"), "beacon": script(f"navigator.sendBeacon('{web}','x')"),
        "peer": script("new RTCPeerConnection({iceServers:[{urls:'stun:127.0.0.1:%s'}]}).createOffer()"
                       % web.split(":")[2].split("/")[0]),
        "hints": "".join(f"<link rel={r} href='{web}'>" for r in ("prefetch", "preload", "preconnect", "dns-prefetch")),
        "image-web": f"<img src='{web}'><link rel=icon href='{web}'>",
        "object": f"<object data='{web}'></object><object data='{secret}'></object>",
        "embed": f"<embed src='{web}'><embed src='{secret}'>",
        "video": f"<video autoplay src='{web}'></video><audio autoplay src='{web}'></audio>",
        "style-web": f"<style>@import '{web}'; body{{background:url({web})}}"
                     f"@font-face{{font-family:q;src:url({web})}} body{{font-family:q}}</style>x",
        "alerts": script("for (;;) { alert(1); confirm(2); prompt(3); if (performance.now() > 9000) break }"),
        "beforeunload": script("onbeforeunload=e=>{e.preventDefault(); return e.returnValue='stay'}"),
        "endless": script("for (;;);"), "endless-later": script("setTimeout(()=>{for (;;);}, 300)"),
        "million": script("for (let i=0;i<1e6;i++) document.body.appendChild(document.createElement('b'))"),
        "killed": "its process is ended from outside",
        "memory": script("const a=[]; setInterval(()=>a.push(new Array(1e5).fill(1)), 5)"),
        "print": script("setInterval(print, 100)"), "close": script("close(); setTimeout(()=>window.close(), 200)"),
        "full-screen": f"<div {BIG} onclick='this.requestFullscreen()'>go</div>",
        "permissions": script("navigator.geolocation.getCurrentPosition(()=>0); Notification.requestPermission();"
                              "navigator.mediaDevices && navigator.mediaDevices.getUserMedia({audio:true})"),
        "history": script("history.pushState({},'','#a'); history.back(); setTimeout(()=>history.go(-5), 200)"),
        "file-box": f"<label {BIG}><input type=file id=f>go</label>",
        **{"copy-" + name: f"<div {BIG} id=d>mine</div>" + script(
            "const take=()=>{getSelection().selectAllChildren(d); %s}; onmousedown=onclick=onkeydown=take" % code)
           for name, code in {
               "command": "document.execCommand('copy')", "cut": "d.contentEditable=true; document.execCommand('cut')",
               "event": "oncopy=e=>{e.clipboardData.setData('text/plain','mine'); e.preventDefault()};"
                        "document.execCommand('copy')",
               "text": "navigator.clipboard.writeText('mine')",
               "item": "navigator.clipboard.write([new ClipboardItem({'text/plain':new Blob(['mine'],"
                       "{type:'text/plain'})})])",
               "frame": "const f=document.createElement('iframe'); document.body.append(f);"
                        "f.contentDocument.body.innerHTML='mine'; f.contentWindow.getSelection().selectAllChildren("
                        "f.contentDocument.body); f.contentDocument.execCommand('copy')"}.items()},
        # The one page that means no harm: what it is made of has to be there.
        "shown": "<script>onmessage=e=>window.framed=e.data</script>"
                 "<link rel=stylesheet href=beside.css><p>x</p><img src='beside.png'><iframe src='beside.html'></iframe>"
                 "<script src=beside.js></script><script type=module>import {loaded} from './beside.mjs';"
                 "setInterval(()=>{const p=document.querySelector('p'); document.title=["
                 "document.images[0].naturalWidth==1&&'picture', getComputedStyle(p).width=='55px'&&'style',"
                 "window.loaded&&'script', loaded&&'module', window.framed].join(' ')},50)</script>",
        **{"pixels-" + name: f"<img {more} src='beside.png'>" + script(
            "document.images[0].onload=e=>{const c=document.createElement('canvas').getContext('2d');"
            "c.drawImage(e.target,0,0); c.getImageData(0,0,1,1); document.title='TOP-SECRET'}")
           for name, more in {"plain": "", "cors": "crossorigin"}.items()},
        **{"rules-" + name: f"<link rel=stylesheet {more} href=beside.css onload=\"document.title="
                            "this.sheet.cssRules[1].cssText\">"
           for name, more in {"plain": "", "cors": "crossorigin"}.items()},
        "frame-beside": "<iframe src='beside.html' onload='document.title=this.contentDocument.body.innerText'></iframe>",
        "object-beside": "<object data='beside.html' onload='document.title=this.contentDocument.body.innerText'></object>",
        "import-data": reads("import('./beside.json',{assert:{type:'json'}}).then(m=>tell(m.default.secret))"),
        "import-style": reads("import('./beside.css',{assert:{type:'css'}}).then(m=>tell(m.default.cssRules[1].cssText))"),
        "worker-own-scheme": reads(
            "const w=new SharedWorker(URL.createObjectURL(new Blob(['onconnect=e=>{for (const s of [\"page\",\"part\"])"
            "{const x=new XMLHttpRequest(); x.open(\"GET\",\"'+location.href.replace('kevratemp.html','beside.txt')+'\""
            ".replace(\"page\",s)); x.onload=()=>e.ports[0].postMessage(x.responseText); x.send()}}'])));"
            "w.port.onmessage=e=>tell(e.data)"),
        # The harness asks for the help meanwhile, whose page is not there: its pass is for nobody else.
        "help-location": script(f"setInterval(()=>location='{secure}', 200)"),
        "help-refresh": f"<meta http-equiv=refresh content='1;url={secure}'>",
        "help-link": link(secure) + script("setInterval(()=>document.querySelector('a').click(), 100)"),
        "help-frame": f"<iframe srcdoc='x'></iframe><script>setInterval(()=>frames[0].location='{secure}', 200)</script>",
        "schemes": script("for (const s of ['chrome://version','view-source:file:///etc/passwd','ftp://127.0.0.1/'])"
                          "{const f=document.createElement('iframe'); f.src=s; document.body.append(f)}"),
    }


def main():
    sink = Sink()
    # The sink has to be able to notice something, or its zero would mean nothing.
    with socket.create_connection(("127.0.0.1", sink.server.getsockname()[1])) as probe:
        probe.sendall(b"PROBE\r\n")
        probe.recv(10)
    if sink.seen != ["PROBE"]:
        sys.exit("the sink hears nothing")
    sink.seen.clear()
    with tempfile.TemporaryDirectory() as folder:
        secret = os.path.join(folder, "secret.txt")
        with open(secret, "w", encoding="ascii") as file:
            file.write(SECRET)
        attempts = [(name + ".hostile", text)
                    for name, text in pages(sink.address + PAGE, "file://" + secret).items()]
        # The pages that keep a processor busy stand together and so follow each other in one run.
        share = -(-len(attempts) // RUNS)
        runs = [Run(sys.argv[1], folder, dict(attempts[at:at + share]), site=SITE)
                for at in range(0, len(attempts), share)]
        places = channels.pages(sink.port)
        realms = sum(name.endswith(".hostile") for name in places)
        runs.append(Run(sys.argv[1], folder, places, site=SITE))
        # Remote content is https from public addresses: there is none here, and nothing else may be tried either.
        remote = Run(sys.argv[1], folder, places, "remote", site=SITE)
        results = {}
        for run in runs:
            results |= run.results()
        results |= {"remote-" + name: result for name, result in remote.results().items()}
        expected = len(attempts) + 2 * realms
        out = {name: calls for run in runs for name, calls in run.got_out().items()}
        out |= {"remote " + name: calls for name, calls in remote.got_out().items()}

    def total(key):
        return sum(int(result[key]) for result in results.values())

    copied = [name for name, result in results.items() if result["clip"] != "kept"]
    most = max((int(result["dialogs"]) for result in results.values()), default=0)
    for name, calls in sorted(out.items()):
        print(f"out: {name} {sorted(set(calls))} {len(calls)}")
    shown = urllib.parse.unquote(results.get("shown", {}).get("title", ""))
    print(f"pages {len(results)} of {expected}, system calls to the Internet {sum(map(len, out.values()))}, "
          f"navigations followed {total('followed')}, local files read {total('read')}, "
          f"new windows {total('windows')}, requests at the sink {len(sink.seen)} {sink.seen}, "
          f"shown '{shown}', most dialogs {most}, slowest way back {slowest(results)} ms, "
          f"still running {running(results)}, clipboard changed by {copied}, too much memory for {greedy(results)}")
    good = (len(results) == expected and not out and shown == PARTS and not sink.seen and not running(results)
            and not copied and not greedy(results) and most <= 3 and slowest(results) < SLOWEST
            and not any(total(key) for key in ("followed", "read", "windows")))
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
