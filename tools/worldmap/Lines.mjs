// Lines of points [x, y] in image pixels.

/** Distance of a point from the stretch between two others. */
function PointGetDistance([nX, nY], [nX1, nY1], [nX2, nY2]) {
    const [dDx, dDy] = [nX2 - nX1, nY2 - nY1];
    const dLength2 = dDx * dDx + dDy * dDy;
    const dAlong = dLength2 === 0 ? 0 : ((nX - nX1) * dDx + (nY - nY1) * dDy) / dLength2;
    const dPart = Math.min(Math.max(dAlong, 0), 1);
    return Math.hypot(nX - nX1 - dPart * dDx, nY - nY1 - dPart * dDy);
}

/**
 * The line with as few points as keep it within dTolerance (Douglas and Peucker 1973). Both ends
 * stay, so lines that met still meet and neighbours still share their border.
 */
export function LineSimplify(aLine, dTolerance) {
    const aKeep = new Array(aLine.length).fill(false);
    aKeep[0] = aKeep[aLine.length - 1] = true;
    const aOpen = [[0, aLine.length - 1]];
    while (aOpen.length > 0) {
        const [nFirst, nLast] = aOpen.pop();
        let nFar = 0;
        let dFar = dTolerance;
        for (let i = nFirst + 1; i < nLast; ++i) {
            const dDistance = PointGetDistance(aLine[i], aLine[nFirst], aLine[nLast]);
            if (dDistance > dFar) [nFar, dFar] = [i, dDistance];
        }
        if (nFar === 0) continue;
        aKeep[nFar] = true;
        aOpen.push([nFirst, nFar], [nFar, nLast]);
    }
    return aLine.filter((_, i) => aKeep[i]);
}

/** Area inside a ring, whichever way round it runs. */
export function RingGetArea(aRing) {
    let dTwice = 0;
    let [nXOld, nYOld] = aRing.at(-1);
    for (const [nX, nY] of aRing) {
        dTwice += nXOld * nY - nX * nYOld;
        [nXOld, nYOld] = [nX, nY];
    }
    return Math.abs(dTwice) / 2;
}
