// Makes the world map data of Hopcast: Natural Earth countries in Mercator, in levels of detail.
//
// Usage:   node MapMake.mjs OUTPUT            writes the data
//          node MapMake.mjs --check OUTPUT    compares with what is there, status 1 on a difference
// Layout of the output: src/ui/map/WorldMapData.h. How to remake it: assets/README.md.
import { createHash } from "node:crypto";
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { ColoursGet, kIce } from "./Colours.mjs";
import { LineSimplify, RingGetArea } from "./Lines.mjs";

const kSourceHash = "04342cdc1e3016bcd7db1630de95684d67b79fe3c8c460321e87aef469502394";
const kImgWidth = 360000; // image pixels for 360 degrees: a thousandth of a degree each
const kImgHeight = 338000; // edges at 84.005 degrees north and south
const kTolerances = [0, 12, 48, 192]; // image pixels that a line of each level may be off
const kIceCountries = ["Antarctica", "Greenland"];
const kLatLowest = -89; // nearer to the pole Mercator runs off to infinity

/** Image pixels from longitude 0 eastwards and from the top edge down. */
function PointProject(dLon, dLat) {
    const dPhi = (Math.max(dLat, kLatLowest) * Math.PI) / 180;
    const dMercator = Math.log(Math.tan(Math.PI / 4 + dPhi / 2));
    return [
        Math.round((dLon * kImgWidth) / 360),
        Math.round(kImgHeight / 2 - (dMercator * kImgWidth) / (2 * Math.PI)),
    ];
}

/** The multiple of the image width that brings nX nearest to nXNear. */
function ShiftGet(nX, nXNear) {
    return Math.round((nXNear - nX) / kImgWidth) * kImgWidth;
}

/** The source's lines (shared by both neighbours), projected; a line over 180 degrees runs on. */
function ArcsRead(topology) {
    const [dScaleX, dScaleY] = topology.transform.scale;
    const [dLon0, dLat0] = topology.transform.translate;
    return topology.arcs.map((aDeltas) => {
        let nX = 0;
        let nY = 0;
        const aPoints = [];
        for (const [nDx, nDy] of aDeltas) {
            nX += nDx;
            nY += nDy;
            const point = PointProject(nX * dScaleX + dLon0, nY * dScaleY + dLat0);
            if (aPoints.length > 0) point[0] += ShiftGet(point[0], aPoints.at(-1)[0]);
            aPoints.push(point);
        }
        return aPoints;
    });
}

/** Rings of line numbers (complement = backwards) of a country, holes and parts alike. */
function RingsGetArcs(geometry) {
    return geometry.type === "Polygon" ? geometry.arcs : geometry.arcs.flat();
}

/** One ring as points, without the repeated last one; x runs on over the image's edges. */
function RingJoin(aArcs, aArcNumbers) {
    const aRing = [];
    for (const nArc of aArcNumbers) {
        const aArc = nArc < 0 ? aArcs[~nArc].slice().reverse() : aArcs[nArc];
        const nShift = aRing.length > 0 ? ShiftGet(aArc[0][0], aRing.at(-1)[0]) : 0;
        const nSkip = aRing.length > 0 ? 1 : 0;
        for (const [nX, nY] of aArc.slice(nSkip)) aRing.push([nX + nShift, nY]);
    }
    const [nXFirst] = aRing[0];
    const [nXLast, nYLast] = aRing.at(-1);
    if (nXLast !== nXFirst) {
        // Round the pole: closed along a line far below the image's bottom edge.
        const [, nYPole] = PointProject(0, kLatLowest);
        aRing.push([nXLast, Math.max(nYPole, nYLast)], [nXFirst, Math.max(nYPole, nYLast)]);
        return aRing;
    }
    aRing.pop();
    return aRing;
}

/** The ring moved so that its left end lies in 0 to the image width. */
function RingPlace(aRing) {
    const nLeft = aRing.reduce((nMin, [nX]) => Math.min(nMin, nX), Infinity);
    const nShift = -Math.floor(nLeft / kImgWidth) * kImgWidth;
    return aRing.map(([nX, nY]) => [nX + nShift, nY]);
}

/** What a level shows of a country: rings too small for it go, the largest one always stays. */
function CountryGetRings(geometry, aArcs, nTolerance) {
    const aRings = RingsGetArcs(geometry)
        .map((aNumbers) => RingPlace(RingJoin(aArcs, aNumbers)))
        .filter((aRing) => aRing.some(([, nY]) => nY < kImgHeight))
        .map((aRing) => ({ aRing, dArea: RingGetArea(aRing) }))
        .sort((one, two) => two.dArea - one.dArea);
    return aRings
        .filter(({ aRing, dArea }, i) => i === 0 || (aRing.length > 2 && dArea > nTolerance ** 2))
        .map(({ aRing }) => aRing);
}

class ByteWriter {
    aBytes = [];
    UnsignedPut(n) {
        for (; n > 127; n = Math.floor(n / 128)) this.aBytes.push((n % 128) + 128);
        this.aBytes.push(n);
    }
    SignedPut(n) {
        this.UnsignedPut(n < 0 ? -2 * n - 1 : 2 * n);
    }
    TextPut(sText) {
        const aText = new TextEncoder().encode(sText);
        this.UnsignedPut(aText.length);
        this.aBytes.push(...aText);
    }
    RingPut(aRing) {
        let [nXOld, nYOld] = [0, 0];
        this.UnsignedPut(aRing.length);
        for (const [nX, nY] of aRing) {
            this.SignedPut(nX - nXOld);
            this.SignedPut(nY - nYOld);
            [nXOld, nYOld] = [nX, nY];
        }
    }
}

function MapWrite(aCountries) {
    const out = new ByteWriter();
    out.aBytes.push(...new TextEncoder().encode("HCWM"), 1);
    out.UnsignedPut(kImgWidth);
    out.UnsignedPut(kImgHeight);
    out.UnsignedPut(kTolerances.length);
    kTolerances.forEach((nTolerance) => out.UnsignedPut(nTolerance));
    out.UnsignedPut(aCountries.length);
    for (const country of aCountries) {
        out.TextPut(country.sName);
        out.UnsignedPut(country.nColour);
        for (const aRings of country.aLevels) {
            out.UnsignedPut(aRings.length);
            aRings.forEach((aRing) => out.RingPut(aRing));
        }
    }
    return Uint8Array.from(out.aBytes);
}

function SourceRead() {
    const sFile = createRequire(import.meta.url).resolve("world-atlas/countries-50m.json");
    const aBytes = readFileSync(sFile);
    const sHash = createHash("sha256").update(aBytes).digest("hex");
    if (sHash !== kSourceHash) throw new Error(`${sFile} is not the file the map is made from`);
    return JSON.parse(aBytes);
}

function MapMake() {
    const topology = SourceRead();
    const aGeometries = topology.objects.countries.geometries;
    const aArcs = ArcsRead(topology);
    const aArcsOfLevel = kTolerances.map((n) => aArcs.map((aArc) => LineSimplify(aArc, n)));
    const aIce = aGeometries.map(({ properties }) => kIceCountries.includes(properties.name));
    const aColours = ColoursGet(aGeometries.map(RingsGetArcs), aArcs, aIce, kImgWidth);
    const aCountries = aGeometries.map((geometry, i) => ({
        sName: geometry.properties.name,
        nColour: aIce[i] ? kIce : aColours[i],
        aLevels: aArcsOfLevel.map((aSome, k) => CountryGetRings(geometry, aSome, kTolerances[k])),
    }));
    // The largest first: what lies inside another country is painted over it.
    const dAreaGet = (country) => RingGetArea(country.aLevels[0][0]);
    aCountries.sort((one, two) => dAreaGet(two) - dAreaGet(one));
    return MapWrite(aCountries);
}

const bCheck = process.argv[2] === "--check";
const sOutput = process.argv.at(-1);
if (process.argv.length !== (bCheck ? 4 : 3)) {
    console.error("usage: node MapMake.mjs [--check] OUTPUT");
    process.exit(2);
}
const aMap = MapMake();
if (!bCheck) {
    writeFileSync(sOutput, aMap);
} else if (Buffer.compare(readFileSync(sOutput), aMap) !== 0) {
    console.error(`${sOutput} differs from what this tool makes`);
    process.exit(1);
}
