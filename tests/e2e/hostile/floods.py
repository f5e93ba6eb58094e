#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows pages that never stop, without and with a screen reader and remote content: VIEW TEXT answers within a second,
the editor grows by none of it, and a screen reader hears a bounded part. Usage: floods.py HARNESS [PAGE ...]"""

import os
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import desktop  # noqa: E402

desktop.on_private_bus()

from harness import PATIENCE, Run, greedy, running, slowest, way_back  # noqa: E402

READ = {"focus", "live", "labels", "selection", "tree", "tables", "scroll"}  # of interest to a reader alone
SLOWEST = 1000  # ms from the click on VIEW TEXT to the text
HEARD = 600  # events in a second: what the editor passes on of a page's, some of them told as two, and its own


def floods():
    def often(code, times=1):
        return f"<body><script>setInterval(()=>{{for(let i=0;i<{times};i++){{{code}}}}},0)</script>"

    def at_once(code):
        return f"<body><script>setTimeout(()=>{{for(;;){{{code}}}}},300)</script>"

    def after(code, then):
        return f"<body><div id=d aria-live=assertive></div><script>{code}</script>" + then

    link = "<a id=a href='other.html'>x</a>"
    many = "d.innerHTML='<p tabindex=0 role=button aria-label=x>y<b>z</b></p>'.repeat(%d);"
    return {
        "clicks": link + often("a.click()", 2000), "clicks-endless": link + at_once("a.click()"),
        "clicks-fragment": "<a id=a href='#'>x</a>" + often("a.href='#'+Math.random(); a.click()", 500),
        "navigations": often("location='other'+i+'.html'", 200), "reload": often("location.reload()"),
        "reload-frames": "<iframe srcdoc='x'></iframe>" * 20 + often("for (const f of frames) f.location.reload()"),
        "refresh": "<meta http-equiv=refresh content='0'>", "go": often("history.go(0)", 20),
        "frames": "<iframe src=kevratemp.html></iframe><iframe src=kevratemp.html></iframe>" + often(
            "const f=document.createElement('iframe'); f.src=location.href; document.body.append(f)"),
        "frames-moved": "<iframe src=kevratemp.html></iframe>" * 2 + often(
            "for (const f of document.querySelectorAll('iframe')) f.src=f.src", 20),
        "history": often("history.pushState({},'','#'+Math.random())", 500),
        "history-back": often("history.pushState({},'','#'+i); history.back(); history.forward()", 100),
        "hash": often("location.hash=Math.random()", 500), "replace": often("location.replace('#'+Math.random())", 500),
        "console": often("console.log('x'.repeat(1e5))", 100), "console-endless": at_once("console.log('x')"),
        "title": often("document.title=Math.random()", 1000),
        "messages": "<iframe srcdoc='<script>onmessage=e=>e.source.postMessage(e.data,`*`)</script>'></iframe>" + often(
            "frames[0] && frames[0].postMessage('x'.repeat(1e5),'*')", 100),
        "blobs": "<script>const all=[]</script>" + often("all.push(new Blob([new Uint8Array(1<<24).fill(7)]))"),
        "blobs-small": "<script>const all=[]</script>" + often("all.push(new Blob([Math.random()]))", 5000),
        "blobs-addresses": often("URL.createObjectURL(new Blob(['x'.repeat(999)]))", 2000),
        "caches": "<script>let n=0</script>" + often(
            "caches.open('x').then(c=>c.put('https://x.invalid/'+n++,new Response(new Uint8Array(1<<24).fill(7))))"),
        "stored": "<script>let n=0, s='x'.repeat(1<<22); const o=indexedDB.open('x'); o.onupgradeneeded=()=>"
                  "o.result.createObjectStore('x')</script>" + often(
                      "o.result && o.result.transaction('x','readwrite').objectStore('x').put(s,n++)"),
        "arrays": "<script>const all=[]</script>" + often("all.push(new Uint8Array(1<<25).fill(1))"),
        "workers": "".join(["<script>new Worker(URL.createObjectURL(new Blob(['const all=[];"
                           "setInterval(()=>all.push(new Uint8Array(1<<24).fill(1)),5)'])))</script>"] * 8),
        "workers-new": often("new Worker(URL.createObjectURL(new Blob(['for(;;);'])))"),
        "canvases": "<script>const all=[]</script>" + often(
            "const c=document.createElement('canvas'); c.width=c.height=4096; c.getContext('2d').fillRect(0,0,4096,4096);"
            "all.push(c); document.body.append(c)"),
        "pictures": often("new Image().src='picture'+Math.random()", 300),
        "pictures-web": often("new Image().src='https://n'+Math.random()+'.invalid/'", 100),
        # What a screen reader is told of.
        "focus": after("", often(
            "const p=document.createElement('p'); p.textContent='x'+i; p.tabIndex=0; d.append(p); p.focus();"
            "if (d.childNodes.length>2000) d.innerHTML=''", 200)),
        "live": after("", often("d.textContent=Math.random()", 500)),
        "labels": after(many % 2000, often(
            "const p=d.children[i]; p.ariaLabel=Math.random(); p.ariaExpanded=i%2; p.role=i%2?'link':'button'", 2000)),
        "selection": "<textarea id=t></textarea>" + often(
            "t.value=Math.random(); t.focus(); t.setSelectionRange(i%9,9)", 500),
        "tree": after(many % 200000, ""), "tree-anew": after("", often(many % 20000)),
        "tree-deep": after("let e=d; for (let i=0;i<20000;i++) {const n=document.createElement('div'); n.tabIndex=0;"
                           "e.append(n); e=n}", ""),
        "tree-hidden": after(many % 20000, often("d.hidden=!d.hidden")),
        "tables": after("d.innerHTML='<table>'+('<tr>'+'<td>x'.repeat(50)).repeat(2000)+'</table>'",
                        often("d.firstChild.border=Math.random()*9|0")),
        "scroll": after(many % 2000, often("scrollTo(0,Math.random()*9999)", 20)),
    }


class Reader:
    """A screen reader on a bus and a display of its own, beside the programs."""

    def __init__(self):
        self.process = subprocess.Popen([sys.executable, os.path.join(os.path.dirname(__file__), "reader.py")],
                                        stdout=subprocess.PIPE, text=True)
        self.process.stdout.readline()

    def most(self):
        """Events in a second."""
        self.process.terminate()
        return int(self.process.communicate(timeout=20)[0])


def played(harness, texts, *options, **more):
    """What came of each page. One that was late is shown a second time, alone: the clock counts what else the machine
    did meanwhile."""
    with tempfile.TemporaryDirectory() as folder:
        results = Run(harness, folder, texts, *options, traced=False, **more).results()
        again = {page: text for page, text in texts.items() if is_late(results.get(page.removesuffix(".hostile")))}
        return results | (Run(harness, folder, again, *options, traced=False, **more).results() if again else {})


def is_late(result):
    return result is not None and way_back(result) >= SLOWEST


def main():
    wanted = sys.argv[2:]
    texts = {f"flood-{name}.hostile": text for name, text in floods().items() if not wanted or name in wanted}
    # One after the other: it is about time.
    unread = {page: text for page, text in texts.items() if page.removesuffix(".hostile").split("-")[1] not in READ}
    results = played(sys.argv[1], unread)
    with desktop.Desktop(longest=PATIENCE):
        reader = Reader()
        read = played(sys.argv[1], texts, "remote", platform="xcb")
        heard = reader.most()
    results |= {"read-" + name: result for name, result in read.items()}
    expected = len(unread) + len(texts)
    late = {name: way_back(result) for name, result in results.items() if is_late(result)}
    print(f"floods {len(results)} of {expected}, slowest way back {slowest(results)} ms, late {late}, still running "
          f"{running(results)}, too much memory for {greedy(results)}, most events read in a second {heard}")
    good = (len(results) == expected and not late and not running(results) and not greedy(results)
            and 0 < heard <= HEARD)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
