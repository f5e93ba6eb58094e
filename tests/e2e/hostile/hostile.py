#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows pages that mean harm in the preview and counts what they achieve. A server on this machine stands for the
web: not even a connection may reach it, and no process of the editor may call the system with an address of the
Internet. Usage: hostile.py HARNESS"""

import base64
import os
import socket
import subprocess
import sys
import tempfile
import threading
import urllib.parse

import channels

RUNS = 4  # at the same time; most of a page's time is waiting
SECRET = "document.title = 'TOP-SECRET'"
PAGE = "PAGE-NAME"  # in an address: tells at the sink which page was there
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
        "schemes": script("for (const s of ['chrome://version','view-source:file:///etc/passwd','ftp://127.0.0.1/'])"
                          "{const f=document.createElement('iframe'); f.src=s; document.body.append(f)}"),
    }


# Pages that never stop. What they may take is said in src/preview/page_bounds.h; the rest is what a look between two
# measurements, and a busy machine, let through.
EDITOR_GROWTH = 512  # MB
PAGE_MEMORY = 2048  # MB


def floods():
    def often(code, times=1):
        return f"<body><script>setInterval(()=>{{for(let i=0;i<{times};i++){{{code}}}}},0)</script>"

    def at_once(code):
        return f"<body><script>setTimeout(()=>{{for(;;){{{code}}}}},300)</script>"

    link = "<a id=a href='other.html'>x</a>"
    return {
        "clicks": link + often("a.click()", 2000), "clicks-endless": link + at_once("a.click()"),
        "navigations": often("location='other'+i+'.html'", 200), "reload": often("location.reload()"),
        "frames": "<iframe src=kevratemp.html></iframe><iframe src=kevratemp.html></iframe>" + often(
            "const f=document.createElement('iframe'); f.src=location.href; document.body.append(f)"),
        "console": often("console.log('x'.repeat(1e5))", 100), "console-endless": at_once("console.log('x')"),
        "title": often("document.title=Math.random()", 1000),
        "blobs": "<script>const all=[]</script>" + often("all.push(new Blob([new Uint8Array(1<<24).fill(7)]))"),
        "caches": "<script>let n=0</script>" + often(
            "caches.open('x').then(c=>c.put('https://x.invalid/'+n++,new Response(new Uint8Array(1<<24).fill(7))))"),
        "arrays": "<script>const all=[]</script>" + often("all.push(new Uint8Array(1<<25).fill(1))"),
        "workers": "".join(["<script>new Worker(URL.createObjectURL(new Blob(['const all=[];"
                           "setInterval(()=>all.push(new Uint8Array(1<<24).fill(1)),5)'])))</script>"] * 8),
        "canvases": "<script>const all=[]</script>" + often(
            "const c=document.createElement('canvas'); c.width=c.height=4096; c.getContext('2d').fillRect(0,0,4096,4096);"
            "all.push(c); document.body.append(c)"),
        "focus": "<body><div id=d aria-live=assertive></div>" + often(
            "const p=document.createElement('p'); p.textContent='x'+i; p.tabIndex=0; d.append(p); p.focus();"
            "if (d.childNodes.length>2000) d.innerHTML=''", 200),
        "pictures": often("new Image().src='picture'+Math.random()", 300),
    }


class Sink:
    """Accepts connections on this machine, answers like a web server, and keeps their first lines."""

    def __init__(self):
        self.seen = []
        self.server = socket.create_server(("127.0.0.1", 0))
        self.packets = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.packets.bind(("127.0.0.1", self.server.getsockname()[1]))
        for work in (self.serve, self.listen):
            threading.Thread(target=work, daemon=True).start()

    @property
    def port(self):
        return self.server.getsockname()[1]

    @property
    def address(self):
        return f"http://127.0.0.1:{self.port}/"

    def serve(self):
        while True:
            connection, _ = self.server.accept()
            connection.settimeout(1)
            try:
                self.seen.append(connection.recv(200).split(b"\r\n")[0].decode("latin-1"))
                connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 2\r\nAccess-Control-Allow-Origin: *\r\n\r\nok")
            except OSError:
                self.seen.append("(connection)")
            connection.close()

    def listen(self):
        while True:
            self.packets.recv(2000)
            self.seen.append("(packet)")


class Run:
    """The harness on some of the pages, in a site and a home folder of its own, with its system calls traced."""

    def __init__(self, harness, folder, attempts, *options):
        self.home = tempfile.mkdtemp(dir=folder)
        site = os.path.join(self.home, "site")
        os.mkdir(site)
        for name, text in {**SITE, **attempts}.items():
            with open(os.path.join(site, name), "wb") as file:
                file.write(text if isinstance(text, bytes) else text.replace(PAGE, name).encode())
        self.trace = os.path.join(self.home, "trace")
        calls = "trace=connect,sendto,sendmsg,sendmmsg"
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=self.home, XDG_RUNTIME_DIR=self.home)
        self.process = subprocess.Popen(
            ["strace", "-f", "--seccomp-bpf", "-qq", "-e", calls, "-o", self.trace, harness, site, *options],
            env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)

    def results(self):
        """What each page achieved, by its name. A run that failed has no pages."""
        output, _ = self.process.communicate(timeout=280)
        print(output, end="")
        if self.process.returncode:
            return {}
        return {line.split()[0]: dict(part.split("=", 1) for part in line.split()[1:])
                for line in output.splitlines()}

    def got_out(self):
        with open(self.trace, encoding="utf-8", errors="replace") as trace:
            return channels.who_got_out(trace)


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
        runs = [Run(sys.argv[1], folder, dict(attempts[at:at + share])) for at in range(0, len(attempts), share)]
        places = channels.pages(sink.port)
        expected = len(attempts) + sum(name.endswith(".hostile") for name in places)
        runs.append(Run(sys.argv[1], folder, places))
        never_stop = {f"flood-{name}.hostile": text for name, text in floods().items()}
        expected += len(never_stop)
        runs.append(Run(sys.argv[1], folder, never_stop))
        results = {}
        for run in runs:
            results |= run.results()
        out = {name: calls for run in runs for name, calls in run.got_out().items()}

    def total(key):
        return sum(int(result[key]) for result in results.values())

    slowest = max((int(result["back"]) for result in results.values()), default=0)
    copied = [name for name, result in results.items() if result["clip"] != "kept"]
    greedy = [name for name, result in results.items()
              if int(result["own"]) > EDITOR_GROWTH or int(result["page"]) > PAGE_MEMORY]
    running = [name for name, result in results.items() if result["ended"] != "yes"]
    most = max((int(result["dialogs"]) for result in results.values()), default=0)
    for name, calls in sorted(out.items()):
        print(f"out: {name} {sorted(set(calls))} {len(calls)}")
    shown = urllib.parse.unquote(results.get("shown", {}).get("title", ""))
    print(f"pages {len(results)} of {expected}, system calls to the Internet {sum(map(len, out.values()))}, navigations followed {total('followed')}, local files read "
          f"{total('read')}, new windows {total('windows')}, requests at the sink {len(sink.seen)} {sink.seen}, "
          f"shown '{shown}', most dialogs {most}, slowest way back {slowest} ms, still running {running}, "
          f"clipboard changed by {copied}, too much memory for {greedy}")
    good = (len(results) == expected and not out and shown == PARTS and not sink.seen and not running and not copied and not greedy and most <= 3
            and slowest < 2000 and not any(total(key) for key in ("followed", "read", "windows")))
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
