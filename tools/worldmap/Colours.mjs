// Colour numbers for countries, so that no two which touch have the same.

const kColours = 5; // 0 to 4
export const kIce = 5; // the colour of ice, outside the choice
const kNear = 2500; // image pixels (2.5 degrees of longitude): countries across a narrow sea

const SetsMake = (nCount) => Array.from({ length: nCount }, () => new Set());

/** Links all members of each group with one another. */
function GroupsLink(aGroups, nCount) {
    const aLinks = SetsMake(nCount);
    for (const group of aGroups)
        for (const nOne of group)
            for (const nTwo of group) if (nOne !== nTwo) aLinks[nOne].add(nTwo);
    return aLinks;
}

/** Countries that share a line or a point where lines end (four meet in one on the Zambezi). */
function NeighboursGet(aCountryRings, aArcs, nImgWidth) {
    const mapGroups = new Map();
    const Add = (sKey, nCountry) => mapGroups.set(sKey, (mapGroups.get(sKey) ?? new Set()).add(nCountry));
    const PointKey = ([nX, nY]) => `${((nX % nImgWidth) + nImgWidth) % nImgWidth},${nY}`;
    aCountryRings.forEach((aRings, nCountry) => {
        for (const nArc of aRings.flat()) {
            const nLine = nArc < 0 ? ~nArc : nArc;
            Add(nLine, nCountry);
            Add(PointKey(aArcs[nLine][0]), nCountry);
            Add(PointKey(aArcs[nLine].at(-1)), nCountry);
        }
    });
    return GroupsLink(mapGroups.values(), aCountryRings.length);
}

/** Countries with coasts in the same or in adjoining squares of kNear. */
function NearGet(aCountryRings, aArcs, nImgWidth) {
    const nColumns = nImgWidth / kNear;
    const mapSquares = new Map();
    aCountryRings.forEach((aRings, nCountry) => {
        for (const nArc of aRings.flat())
            for (const [nX, nY] of aArcs[nArc < 0 ? ~nArc : nArc])
                for (const [nDx, nDy] of [[0, 0], [1, 0], [0, 1], [1, 1]]) {
                    const nColumn = (Math.floor(nX / kNear) + nDx + 2 * nColumns) % nColumns;
                    const sKey = `${nColumn},${Math.floor(nY / kNear) + nDy}`;
                    mapSquares.set(sKey, (mapSquares.get(sKey) ?? new Set()).add(nCountry));
                }
    });
    return GroupsLink(mapSquares.values(), aCountryRings.length);
}

/**
 * One colour number per country (Brelaz 1979: the country with the fewest colours left goes first).
 * Of the colours left it takes the one that countries near it use least, then the rarest one.
 * Countries of ice have none.
 */
export function ColoursGet(aCountryRings, aArcs, aIce, nImgWidth) {
    const aNeighbours = NeighboursGet(aCountryRings, aArcs, nImgWidth);
    const aNear = NearGet(aCountryRings, aArcs, nImgWidth);
    const aColours = new Array(aCountryRings.length).fill(-1);
    const aUses = new Array(kColours).fill(0);
    const TakenGet = (i) => new Set([...aNeighbours[i]].map((j) => aColours[j]).filter((n) => n >= 0));
    const open = new Set(aColours.keys());
    aIce.forEach((bIce, i) => bIce && open.delete(i));
    while (open.size > 0) {
        const RankGet = (i) => TakenGet(i).size * 1000 + aNeighbours[i].size;
        const nNext = [...open].reduce((nBest, i) => (RankGet(i) > RankGet(nBest) ? i : nBest));
        const taken = TakenGet(nNext);
        const CostGet = (n) => [...aNear[nNext]].filter((j) => aColours[j] === n).length * 1000 + aUses[n];
        const aLeft = [...aUses.keys()].filter((n) => !taken.has(n));
        if (aLeft.length === 0) throw new Error("the countries need more colours");
        const nColour = aLeft.reduce((nBest, n) => (CostGet(n) < CostGet(nBest) ? n : nBest));
        aColours[nNext] = nColour;
        ++aUses[nColour];
        open.delete(nNext);
    }
    return aColours;
}
