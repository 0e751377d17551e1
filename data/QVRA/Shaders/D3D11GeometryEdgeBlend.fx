// As with blending, fading out towards the picture's edges; shaderParam2 is one over the width of the fading.
cbuffer Geometry : register(b0) {
    float4x4 world;
    float4x4 view;
    float4x4 projection;
    float4 firstColour;  // ambient light
    float4 secondColour; // directional light
    float4 thirdColour;  // added to what the lights give
    float opacity;
    float shaderParam1;
    float shaderParam2;
    float shaderParam3;
    float shaderParam4;
    float unused1;
    float unused2;
    float unused3;
    float4 fourthColour; // highlight
    float4x4 matrices[100];
};

cbuffer Picture : register(b1) {
    float2 texel; // the size of one, in texture coordinates
    float2 unused4;
};

Texture2D picture : register(t0);
SamplerState pictureSampler : register(s0);

struct Vertex {
    float3 position : POSITION;
    float3 normal : NORMAL;
    float2 texturePosition : TEXCOORD0;
    float2 secondTexturePosition : TEXCOORD1;
    uint4 blendIndices : BLENDINDICES;
    float4 blendWeights : BLENDWEIGHT;
};

struct Point {
    float4 position : SV_Position;
    float2 at : TEXCOORD0; // v is 0 at the picture's top
    float3 viewNormal : TEXCOORD1;
};

// Adds a matrix by the weights of the indices that name it. Not every compiler takes a variable for the index of a
// constant, so each matrix has its turn.
#define ADD(n) skin = skin + matrices[n] * dot(weights, saturate(1.0 - abs(indices - n)));

Point VS(Vertex vertex) {
    Point result;
    float4 indices = vertex.blendIndices;
    float4 weights = vertex.blendWeights;
    float4x4 skin = matrices[0] * dot(weights, float4(1.0, 1.0, 1.0, 1.0));
    if (dot(indices, indices) != 0.0) {
        skin = skin * 0.0;
        ADD(0) ADD(1) ADD(2) ADD(3) ADD(4) ADD(5) ADD(6) ADD(7) ADD(8) ADD(9)
        ADD(10) ADD(11) ADD(12) ADD(13) ADD(14) ADD(15) ADD(16) ADD(17) ADD(18) ADD(19)
        ADD(20) ADD(21) ADD(22) ADD(23) ADD(24) ADD(25) ADD(26) ADD(27) ADD(28) ADD(29)
        ADD(30) ADD(31) ADD(32) ADD(33) ADD(34) ADD(35) ADD(36) ADD(37) ADD(38) ADD(39)
        ADD(40) ADD(41) ADD(42) ADD(43) ADD(44) ADD(45) ADD(46) ADD(47) ADD(48) ADD(49)
        ADD(50) ADD(51) ADD(52) ADD(53) ADD(54) ADD(55) ADD(56) ADD(57) ADD(58) ADD(59)
        ADD(60) ADD(61) ADD(62) ADD(63) ADD(64) ADD(65) ADD(66) ADD(67) ADD(68) ADD(69)
        ADD(70) ADD(71) ADD(72) ADD(73) ADD(74) ADD(75) ADD(76) ADD(77) ADD(78) ADD(79)
        ADD(80) ADD(81) ADD(82) ADD(83) ADD(84) ADD(85) ADD(86) ADD(87) ADD(88) ADD(89)
        ADD(90) ADD(91) ADD(92) ADD(93) ADD(94) ADD(95) ADD(96) ADD(97) ADD(98) ADD(99)
    }
    float4 moved = mul(float4(vertex.position, 1.0), skin);
    float4 turned = mul(float4(vertex.normal, 0.0), skin);
    result.position = mul(mul(mul(moved, world), view), projection);
    float4 viewNormal = mul(mul(float4(turned.xyz, 0.0), world), view);
    result.viewNormal = viewNormal.xyz;
    result.at = float2(vertex.texturePosition.x, 1.0 - vertex.texturePosition.y);
    return result;
}

float4 PS(Point input) : SV_Target {
    // The light comes over the viewer's shoulder and shines on both sides of a face, as faces are not culled.
    float facing = abs(dot(input.viewNormal, float3(0.36, 0.48, -0.8))) / max(length(input.viewNormal), 0.000001);
    float3 lights = firstColour.rgb + secondColour.rgb * facing;
    float3 added = thirdColour.rgb + fourthColour.rgb * pow(facing, max(shaderParam2, 0.000001));
    float4 colour = picture.Sample(pictureSampler, input.at);
    float2 inside = min(input.at, 1.0 - input.at);
    float edge = saturate(min(inside.x, inside.y) * shaderParam2);
    return float4(colour.rgb * lights + added, colour.a * opacity * edge);
}
