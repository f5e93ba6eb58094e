// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the page beside the text equal to the text, node by node, so that its scroll position, form contents and focus
// stay. It runs in a world of its own, which the page cannot reach. The elements of the texts it is given carry the
// offset of their tag as an attribute; those of the page never do.
(function (tell) {
    'use strict';

    const offsetName = 'kevra-offset';

    // What a form or the page contains can hide properties: <input name="childNodes">. The prototypes cannot be hidden.
    const getter = (type, name) => {
        const get = Object.getOwnPropertyDescriptor(type.prototype, name).get;
        return object => get.call(object);
    };
    const method = (type, name) => {
        const call = type.prototype[name];
        return (object, ...given) => call.apply(object, given);
    };
    const nodeName = getter(Node, 'nodeName'), nodeType = getter(Node, 'nodeType'), parentOf = getter(Node, 'parentNode');
    const firstChild = getter(Node, 'firstChild'), nextSibling = getter(Node, 'nextSibling');
    const dataOf = getter(CharacterData, 'data'), attributesOf = getter(Element, 'attributes');
    const setData = method(CharacterData, 'replaceData'), markupOf = getter(Element, 'innerHTML');
    const root = getter(Document, 'documentElement'), bodyOf = getter(Document, 'body'), modeOf = getter(Document, 'compatMode');
    const importNode = method(Document, 'importNode'), insertBefore = method(Node, 'insertBefore');
    const removeChild = method(Node, 'removeChild'), appendChild = method(Node, 'appendChild');
    const setAttribute = method(Element, 'setAttributeNode'), removeAttribute = method(Element, 'removeAttribute');
    const attributeOf = method(Element, 'getAttributeNode'), boxesOf = method(Element, 'getClientRects');
    const scrollTo = method(Element, 'scrollIntoView'), animate = method(Element, 'animate');

    // ---- a tree of nodes, read once

    function read(node) {
        const item = {node, name: nodeName(node), at: -1, data: null, attributes: [], children: [], live: null,
            also: null};
        if (nodeType(node) !== Node.ELEMENT_NODE) {
            item.data = nodeType(node) === Node.TEXT_NODE || nodeType(node) === Node.COMMENT_NODE ? dataOf(node) : '';
            return item;
        }
        for (const {name, value} of attributesOf(node)) {
            if (name === offsetName)
                item.at = Number(value);
            else
                item.attributes.push(name, value);
        }
        if (item.name === 'TEMPLATE')
            item.attributes.push('', markupOf(node));
        for (let child = firstChild(node); child; child = nextSibling(child))
            item.children.push(read(child));
        return item;
    }

    function parse(text) {
        const parsed = new DOMParser().parseFromString(text, 'text/html');
        return {mode: modeOf(parsed), top: read(root(parsed))};
    }

    let compared; // which items have been found equal, or not, to which one before
    const sameList = (a, b) => a.length === b.length && a.every((value, i) => value === b[i]);

    function equal(a, b) {
        if (a === b)
            return true;
        const known = compared.get(b);
        if (known && known.to === a)
            return known.result;
        const result = a.name === b.name && a.data === b.data && sameList(a.attributes, b.attributes)
            && a.children.length === b.children.length && a.children.every((child, i) => equal(child, b.children[i]));
        if (b.data === null)
            compared.set(b, {to: a, result});
        return result;
    }

    // ---- which of the old children is which of the new

    const mostPairs = 40000; // looked at one by one
    const idOf = item => item.attributes[item.attributes.indexOf('id') + 1];
    const alike = (a, b) => a.name === b.name && (!a.attributes.includes('id') || idOf(a) === idOf(b));

    /// For each of `b` the index of its like in `a`, or -1; ascending.
    function pairs(a, b) {
        const from = new Array(b.length).fill(-1);
        let start = 0, endA = a.length, endB = b.length;
        while (start < endA && start < endB && equal(a[start], b[start])) {
            from[start] = start;
            ++start;
        }
        while (start < endA && start < endB && equal(a[endA - 1], b[endB - 1]))
            from[--endB] = --endA;
        const few = (endA - start) * (endB - start) <= mostPairs;
        (few ? pairBest : pairInOrder)(a, b, start, endA, endB, from);
        return from;
    }

    function pairInOrder(a, b, start, endA, endB, from) {
        for (let j = start, next = start; j < endB; ++j) {
            const found = a.findIndex((item, i) => i >= next && i < endA && alike(item, b[j]));
            if (found >= 0) {
                from[j] = found;
                next = found + 1;
            }
        }
    }

    /// The longest common subsequence, equal pairs before similar ones.
    function pairBest(a, b, start, endA, endB, from) {
        const width = endB - start + 1;
        const best = new Float64Array((endA - start + 1) * width);
        const weight = (i, j) => !alike(a[i], b[j]) ? 0 : equal(a[i], b[j]) ? 3 : 1;
        const at = (i, j) => (i - start) * width + j - start;
        for (let i = endA - 1; i >= start; --i) {
            for (let j = endB - 1; j >= start; --j) {
                const both = weight(i, j);
                best[at(i, j)] = Math.max(both && both + best[at(i + 1, j + 1)], best[at(i + 1, j)], best[at(i, j + 1)]);
            }
        }
        for (let i = start, j = start; i < endA && j < endB;) {
            if (best[at(i, j)] === best[at(i + 1, j)])
                ++i;
            else if (best[at(i, j)] === best[at(i, j + 1)])
                ++j;
            else
                from[j++] = i++;
        }
    }

    // ---- the page

    let now = null; // the tree of the text that the page shows
    // By the offset of the tag. An element that is not closed can go on in others, which have its tag `also`.
    let elements = new Map();
    const items = new WeakMap(); // by the element of the page

    class Refusal extends Error { }
    const refuse = why => { throw new Refusal(why); };
    // What has been run or looked at when it was parsed does not follow a change.
    const final = new Set(['SCRIPT', 'script', 'NOSCRIPT', 'TEMPLATE', 'BASE']);
    const isFinal = item => final.has(item.name) || (item.name === 'META' && item.attributes.includes('http-equiv'));
    const holdsFinal = item => isFinal(item) || item.children.some(holdsFinal);

    function bind(item, live) {
        item.live = live;
        if (!live || item.at < 0)
            return;
        const first = elements.get(item.at);
        if (first)
            [item.also, first.also] = [first.also, item];
        else
            elements.set(item.at, item);
        items.set(live, item);
    }

    function keep(a, b) {
        if (a === b)
            return;
        bind(b, a.live);
        a.children.forEach((child, i) => keep(child, b.children[i]));
    }

    function create(item) {
        if (isFinal(item))
            refuse('new ' + item.name);
        const live = importNode(document, item.node, false);
        if (item.at >= 0)
            removeAttribute(live, offsetName);
        for (const child of item.children)
            appendChild(live, create(child));
        bind(item, live);
        return live;
    }

    function change(a, b) {
        if (equal(a, b))
            return keep(a, b);
        if (!a.live || isFinal(a) || isFinal(b))
            refuse(b.name);
        bind(b, a.live);
        if (b.data === null) {
            changeAttributes(a, b);
            return changeChildren(a, b);
        }
        if (dataOf(a.live) !== a.data)
            refuse('text');
        setData(a.live, 0, a.data.length, b.data);
    }

    function changeAttributes(a, b) {
        const next = new Map();
        for (let i = 0; i < b.attributes.length; i += 2)
            next.set(b.attributes[i], b.attributes[i + 1]);
        for (let i = 0; i < a.attributes.length; i += 2) {
            const name = a.attributes[i];
            if (!next.has(name))
                removeAttribute(b.live, name);
            else if (next.get(name) === a.attributes[i + 1])
                next.delete(name);
        }
        // A copy, since not every name that a page can hold may be given to setAttribute().
        for (const name of next.keys())
            setAttribute(b.live, attributeOf(b.node, name).cloneNode());
    }

    function changeChildren(a, b) {
        const from = pairs(a.children, b.children);
        const kept = new Set(from);
        a.children.forEach((child, i) => {
            if (kept.has(i))
                return;
            if (!child.live || parentOf(child.live) !== a.live || holdsFinal(child))
                refuse('removed ' + child.name);
            removeChild(a.live, child.live);
        });
        let last = null;
        b.children.forEach((child, i) => {
            if (from[i] >= 0)
                change(a.children[from[i]], child);
            else
                insertBefore(a.live, create(child), last ? nextSibling(last) : firstChild(a.live));
            if (child.live && parentOf(child.live) !== a.live)
                refuse('moved ' + child.name);
            last = child.live || last;
        });
    }

    /// Which nodes of the page are those of its text. Scripts may have changed some: these stay without.
    function match(a, b) {
        bind(b, a.node);
        const from = pairs(a.children, b.children);
        from.forEach((index, i) => {
            if (index >= 0)
                match(a.children[index], b.children[i]);
        });
    }

    // ---- outlines: animations of a property that needs no space; they leave no trace in the document

    const styles = {caret: '2px solid #3584e4', broken: '2px dashed #e01b24'};
    const shown = new Map(); // by use: element and animation
    let atCaret = null;
    let follows = performance.navigation.type !== PerformanceNavigation.TYPE_RELOAD; // else the engine restores the place

    function draw(element, use) {
        const animation = animate(element, {outline: [styles[use], styles[use]], outlineOffset: ['-2px', '-2px']},
            {duration: 1, fill: 'forwards'});
        animation.persist(); // a later one on the same element would end it for good
        return animation;
    }

    function outline(use, wanted) {
        for (const [element, animation] of shown.get(use) || []) {
            if (!wanted.has(element))
                animation.cancel();
        }
        const before = shown.get(use) || new Map();
        shown.set(use, new Map([...wanted].map(element => [element, before.get(element) || draw(element, use)])));
    }

    /// The element itself, or the first around it that can be seen.
    function visibleAt(at) {
        const first = elements.get(at);
        let seen = first;
        while (seen && boxesOf(seen.live).length === 0)
            seen = seen.also;
        let live = (seen || first)?.live;
        while (live && nodeType(live) === Node.ELEMENT_NODE && boxesOf(live).length === 0)
            live = parentOf(live);
        return live && nodeType(live) === Node.ELEMENT_NODE && nodeName(live) !== 'HTML' ? live : null;
    }

    function isInView(element) {
        return [...boxesOf(element)].some(box => box.bottom > 0 && box.right > 0
            && box.top < window.innerHeight && box.left < window.innerWidth);
    }

    function showCaret(at) {
        const element = visibleAt(at);
        outline('caret', new Set(element ? [element] : []));
        if (follows && element && element !== atCaret && !isInView(element))
            scrollTo(element, {block: 'nearest', inline: 'nearest', behavior: 'instant'});
        follows = true;
        atCaret = element;
    }

    const showBroken = tags => outline('broken', new Set(tags.map(visibleAt).filter(element => element)));

    // ---- what the editor asks; the answers are words

    /// Half a comment hides the rest of a page, which is then too short for where it was scrolled to.
    let wanted = null; // the place that was lost, and the one that was left
    const place = () => [window.scrollX, window.scrollY];

    function keepPlace(step) {
        const before = wanted && sameList(wanted.left, place()) ? wanted.lost : place();
        step();
        if (sameList(before, place()))
            wanted = null;
        else {
            window.scrollTo({left: before[0], top: before[1], behavior: 'instant'});
            wanted = sameList(before, place()) ? null : {lost: before, left: place()};
        }
    }

    /// The parsed document is not needed again.
    function release(item) {
        item.node = null;
        item.children.forEach(release);
    }

    function settle(text) {
        compared = new Map();
        elements = new Map();
        const next = parse(text);
        const before = now;
        now = null;
        if (before && (before.mode !== next.mode || before.top.live !== root(document)))
            refuse('document');
        if (before)
            change(before.top, next.top);
        else
            match(read(root(document)), next.top);
        now = next;
        release(next.top);
    }

    /// Some children of one element are others: what began in [start, end) of the text. The rest has moved.
    function settlePart(parentAt, previous, next, start, end, growth, text) {
        compared = new Map();
        const parent = elements.get(parentAt);
        if (!now || !parent || !parent.live)
            refuse('part');
        const place = at => parent.children.findIndex(child => child.at === at);
        const first = previous < 0 ? 0 : place(previous) + 1;
        const last = next < 0 ? parent.children.length : place(next);
        if (last < first || (previous >= 0 && first === 0))
            refuse('part');
        const mode = now.mode;
        const before = now;
        now = null;
        const parsed = new DOMParser().parseFromString(
            (mode === 'BackCompat' ? '' : '<!DOCTYPE html>') + '<body>' + text, 'text/html');
        const part = read(bodyOf(parsed));
        moveElements(start, end, growth);
        const old = {...parent};
        parent.children = [...old.children.slice(0, first), ...part.children, ...old.children.slice(last)];
        changeChildren(old, parent);
        now = before;
        part.children.forEach(release);
    }

    function moveElements(start, end, growth) {
        const moved = new Map();
        for (const [at, item] of elements) {
            for (let each = item; each && at >= end; each = each.also)
                each.at = at + growth;
            if (at < start || at >= end)
                moved.set(item.at, item);
        }
        elements = moved;
    }

    /// What a step cannot do is reported to the editor. It leaves the place as it was, an element that the caret has
    /// come to does not.
    function attempt(step, caret) {
        try {
            keepPlace(step);
            showCaret(caret);
            return 'done';
        } catch (error) {
            now = null;
            return 'refused: ' + error.message;
        } finally {
            compared = null;
        }
    }

    globalThis.following = {
        /// The text that the page was loaded from, or a later one.
        show: (text, caret) => attempt(() => settle(text), caret),
        /// Part of a later one, see PageChange.
        change: (...given) => attempt(() => settlePart(...given), given.at(-1)),
        caret(at) {
            showCaret(at);
            return 'done';
        },
        broken(tags) {
            showBroken(tags);
            return 'done';
        },
    };

    // ---- messages to the editor

    const tellOf = word => event => {
        // Without a detail it is Return or a space that the engine makes a click of.
        if (!event.isTrusted || event.button !== 0 || event.detail === 0)
            return;
        const known = event.composedPath().find(node => items.has(node));
        if (known)
            tell(`${word} ${items.get(known).at}`);
    };
    window.addEventListener('click', tellOf('click'), true);
    window.addEventListener('dblclick', tellOf('pick'), true);
    window.addEventListener('DOMContentLoaded', event => event.isTrusted && tell('ready'), true);
})
