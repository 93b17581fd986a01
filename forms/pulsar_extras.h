#pragma once
// What the pulsar's screen adds to the run of two bodies: plots of a pulsar and their scales.

namespace tarvex {

struct PulsarExtras {
    bool pulses = false, radialSpeed = false, roemer = false, delayBySpeed = false, delayByMass = false;
    double pulsesScale = 0.01;                                   ///< 1/s a cell
    double radialScale = 100000;                                 ///< m/s a cell
    double roemerScale = 1;                                      ///< s a cell
    double delayBySpeedScale = 0.001, delayByMassScale = 0.001;  ///< s a cell
    double signVY = 1;  ///< -1: the radial speed is drawn with the other sign
    int kodTime = 1;    ///< -1: m1 goes round the other way; nothing reads it further
    // the shares that act on the run itself
    double dTvSr = 0, dTmSr = 0;  ///< mean rates of the delays, s/s
    double dAlfaSopr = 60;        ///< half-width of the drag around the periastron, degrees
    double kSopr = 0;             ///< drag / V^2
    bool fromNode = false;        ///< delays count from the ascending node
};

}  // namespace tarvex
